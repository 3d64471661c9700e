#include "files/FileBuffer.h"

#include <algorithm>
#include <cassert>

#include "base/SingleByteText.h"
#include "files/LittleEndian.h"

namespace korvane {
namespace {

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

void AppendBytes(std::vector<std::uint8_t>& bytes, std::string_view text) {
    bytes.insert(bytes.end(), text.begin(), text.end());
}

}  // namespace

void FileWriter::Reserve(std::size_t bytes) {
    bytes_.reserve(bytes_.size() + bytes);
}

void FileWriter::WriteByte(std::uint8_t value) {
    bytes_.push_back(value);
}

void FileWriter::WriteLong(std::int32_t value) {
    StoreLong(Append(4), value);
}

void FileWriter::WriteSingle(float value) {
    StoreSingle(Append(4), value);
}

void FileWriter::WriteString(std::string_view utf8) {
    if (IsAscii(utf8)) {
        AppendBytes(bytes_, utf8);
    } else {
        AppendBytes(bytes_, ToSingleByte(utf8));
    }
}

void FileWriter::WriteCountedString(std::string_view utf8) {
    const std::size_t lengthAt = bytes_.size();
    WriteLong(0);
    WriteString(utf8);
    SetLong(lengthAt, static_cast<std::int32_t>(bytes_.size() - lengthAt - 4));
}

void FileWriter::WriteTag(std::string_view tag) {
    assert(tag.size() == 4);
    AppendBytes(bytes_, tag);
}

std::uint8_t* FileWriter::Append(std::size_t count) {
    const std::size_t at = bytes_.size();
    bytes_.resize(at + count);
    return bytes_.data() + at;
}

void FileWriter::SetLong(std::size_t at, std::int32_t value) {
    assert(at + 4 <= bytes_.size());
    StoreLong(bytes_.data() + at, value);
}

std::uint8_t FileReader::ReadByte() {
    const std::uint8_t* at = Take(1);
    return at ? *at : 0;
}

std::int32_t FileReader::ReadLong() {
    const std::uint8_t* at = Take(4);
    return at ? FetchLong(at) : 0;
}

float FileReader::ReadSingle() {
    const std::uint8_t* at = Take(4);
    return at ? FetchSingle(at) : 0;
}

std::string FileReader::ReadString(std::int32_t count) {
    if (count < 0) Fail();
    const auto length = static_cast<std::size_t>(std::max(count, 0));
    const std::uint8_t* at = Take(length);
    if (!at || length == 0) return {};
    return FromSingleByte({reinterpret_cast<const char*>(at), length});
}

std::string FileReader::ReadCountedString() {
    return ReadString(ReadLong());
}

std::string FileReader::ReadTag() {
    return UpperCase(ReadString(4));
}

void FileReader::Skip(std::int32_t count) {
    if (count < 0) Fail();
    Take(static_cast<std::size_t>(std::max(count, 0)));
}

std::int32_t FileReader::ReadCount(std::size_t recordSize) {
    const std::int32_t count = ReadLong();
    if (count < 0 || static_cast<std::size_t>(count) > Remaining() / recordSize) Fail();
    return good_ ? count : 0;
}

}  // namespace korvane
