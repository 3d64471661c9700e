// The field encoding shared by all binary files: little-endian, no padding, no alignment. A file is
// composed whole in memory and stored whole, or loaded whole and decoded at a cursor.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {

/// Composes a file by appending fields.
class FileWriter {
  public:
    /// Makes room for `bytes` more bytes, so that the writes up to there do not allocate.
    void Reserve(std::size_t bytes);

    void WriteByte(std::uint8_t value);
    void WriteLong(std::int32_t value);
    void WriteSingle(float value);
    /// The Windows-1252 bytes of UTF-8 text, without a length.
    void WriteString(std::string_view utf8);
    /// A Long with the number of characters, then the text.
    void WriteCountedString(std::string_view utf8);
    /// Four characters.
    void WriteTag(std::string_view tag);
    /// `count` bytes to be filled in by the caller; valid until the next write.
    std::uint8_t* Append(std::size_t count);
    /// Replaces the Long at byte `at`, which was written before: for sizes known only later.
    void SetLong(std::size_t at, std::int32_t value);

    const std::vector<std::uint8_t>& Bytes() const { return bytes_; }
    std::vector<std::uint8_t> TakeBytes() { return std::move(bytes_); }

  private:
    std::vector<std::uint8_t> bytes_;
};

/// Decodes a file at a cursor that knows the end. A read past the end gives 0 or an empty text and
/// makes Good() false for good, so a reader may check once per record.
class FileReader {
  public:
    explicit FileReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::uint8_t ReadByte();
    std::int32_t ReadLong();
    float ReadSingle();
    /// The UTF-8 text of `count` bytes; a negative count is a failure.
    std::string ReadString(std::int32_t count);
    /// A Long with the number of characters, then the text.
    std::string ReadCountedString();
    /// Four characters in upper case.
    std::string ReadTag();
    /// Advances by `count` bytes; a negative count is a failure.
    void Skip(std::int32_t count);
    /// A Long that counts records of at least `recordSize` bytes each: a failure (and 0) when it is
    /// negative or when that many cannot fit in what remains.
    std::int32_t ReadCount(std::size_t recordSize);
    /// The next `count` bytes, or nullptr (a failure) when fewer remain.
    const std::uint8_t* Take(std::size_t count) {
        if (!good_ || count > Remaining()) {
            good_ = false;
            return nullptr;
        }
        const std::uint8_t* taken = bytes_.data() + cursor_;
        cursor_ += count;
        return taken;
    }

    bool Good() const { return good_; }
    /// Marks the file as invalid.
    void Fail() { good_ = false; }
    bool AtEnd() const { return cursor_ >= bytes_.size(); }
    std::size_t Remaining() const { return bytes_.size() - cursor_; }

  private:
    std::span<const std::uint8_t> bytes_;
    std::size_t cursor_ = 0;
    bool good_ = true;
};

/// The whole file (UTF-8 path), or nothing when it is no regular file, can't be read, or is longer
/// than a cursor of 32 bits reaches (2^31 - 1 bytes).
std::optional<std::vector<std::uint8_t>> LoadFile(const std::string& path);

/// Stores the bytes as the whole content of the file (UTF-8 path): a temporary file beside it is
/// written, flushed to the disk and renamed over it. An existing file keeps its mode; a symbolic
/// link stays and the file it names is replaced. Refused are an empty path, a folder or device, a
/// file without write permission, and more bytes than LoadFile reads. On failure the old file is
/// left as it was, nothing else remains, and false is returned.
bool SaveFile(const std::string& path, std::span<const std::uint8_t> bytes);

/// A file (UTF-8 path) and what it is to hold.
struct NewFile {
    std::string path;
    std::span<const std::uint8_t> bytes;
};

/// Stores files that belong together, each as SaveFile does. None is touched before all of them are
/// complete on the disk; only a failure to rename, in the order given, can leave the first ones
/// new.
bool SaveFiles(std::span<const NewFile> files);

/// What became of CreateFile.
enum class Creation {
    Done,
    Exists,  ///< something of that name is there and was left alone
    Failed   ///< nothing of that name remains
};

/// Stores the bytes as a new file (UTF-8 path), never over an old one, even when another program
/// creates the same name at the same moment. Does not wait for the disk. Refuses more bytes than
/// LoadFile reads.
Creation CreateFile(const std::string& path, std::span<const std::uint8_t> bytes);

/// Gives the file another name on the same disk (UTF-8 paths), in the place of what has it already.
bool RenameFile(const std::string& from, const std::string& to);

/// Removes the file; one that can't be removed stays.
void DeleteFile(const std::string& path);

}  // namespace korvane
