// Decoding an object file. The bytes come from anywhere: nothing is allocated for a count, and no
// index is kept, before it has been checked.
#include <functional>
#include <limits>
#include <string>
#include <utility>

#include "files/FileBuffer.h"
#include "files/LittleEndian.h"
#include "files/ObjectLayout.h"
#include "files/mObjectFile.h"
#include "scene/mNormals.h"

namespace korvane {
namespace {

using namespace object_file;

/// The library's index for a texture file name.
using FindTexture = std::function<std::int32_t(const std::string&)>;

/// The names of the materials chunk, looked up in the library once each and only when a face uses
/// them. Holds places in the file instead of texts, so that a table of empty names costs no more
/// than twice its bytes.
class MaterialNameTable {
  public:
    MaterialNameTable(std::span<const std::uint8_t> bytes, FindTexture find)
        : bytes_(bytes), find_(std::move(find)) {}

    void Read(FileReader& file) {
        const std::int32_t count = file.ReadCount(4);
        entries_.reserve(count);
        for (std::int32_t i = 0; i < count && file.Good(); ++i) {
            entries_.push_back({bytes_.size() - file.Remaining(), kUnknown});
            file.Skip(file.ReadLong());
        }
    }

    bool Holds(std::int32_t index) const {
        return index < static_cast<std::int32_t>(entries_.size());
    }

    /// The library's index for a material index that the table holds; negative is none.
    std::int32_t TextureOf(std::int32_t index) {
        if (index < 0) return 0;
        Entry& entry = entries_[index];
        if (entry.texture == kUnknown) {
            FileReader name(bytes_.subspan(entry.at));
            entry.texture = find_(name.ReadCountedString());
        }
        return entry.texture;
    }

  private:
    static constexpr std::int32_t kUnknown = -1;

    struct Entry {
        Entry(std::size_t place, std::int32_t id)
            : at(static_cast<std::uint32_t>(place)), texture(id) {}

        std::uint32_t at;      ///< of the name's length in the file
        std::int32_t texture;  ///< index in the library
    };

    std::span<const std::uint8_t> bytes_;
    FindTexture find_;
    std::vector<Entry> entries_;
};

class ObjectReader {
  public:
    ObjectReader(std::span<const std::uint8_t> bytes, FindTexture find, bool withSelection)
        : file_(bytes),
          materials_(bytes, std::move(find)),
          withSelection_(withSelection),
          selectedSize_(withSelection ? kSelected : 0) {}

    std::optional<std::vector<Brush>> Read(std::int32_t firstIndex) {
        if (!ReadHead(kHeaderTag) || !ReadHead(kMaterialsTag)) return std::nullopt;
        materials_.Read(file_);
        if (!ReadHead(kBrushesTag)) return std::nullopt;
        const std::int32_t count = file_.ReadCount(kSmallestBrush + selectedSize_);
        std::vector<Brush> brushes;
        brushes.reserve(count);
        for (std::int32_t i = 0; i < count && file_.Good(); ++i) {
            Brush& brush = brushes.emplace_back();
            brush.name = DefaultBrushName(firstIndex + i);
            ReadBrush(brush);
        }
        if (!file_.Good()) return std::nullopt;
        return brushes;
    }

  private:
    /// A tag, then 8 bytes without meaning for a reader.
    bool ReadHead(std::string_view tag) {
        const bool matches = file_.ReadTag() == tag;
        file_.Skip(8);
        return matches && file_.Good();
    }

    void ReadBrush(Brush& brush) {
        file_.Skip(file_.ReadLong());  // the stored name: brushes are named by their place
        brush.group = file_.ReadCountedString();
        if (withSelection_) brush.selected = file_.ReadByte() != 0;
        ReadVertices(brush);
        ReadFaces(brush);
        std::int32_t extension = file_.ReadLong();
        if (extension == kBrushExtension) {
            brush.shape = static_cast<std::int16_t>(file_.ReadLong());
            extension = file_.ReadLong();
        }
        file_.Skip(extension);
        if (file_.Good()) UpdateBrushNormals(brush);
        Touch(brush);
    }

    void ReadVertices(Brush& brush) {
        const std::int32_t count = file_.ReadCount(kVertex);
        const std::uint8_t* from = file_.Take(count * kVertex);
        if (!from) return;
        brush.vertices.resize(count);
        for (Vertex& vertex : brush.vertices) {
            vertex.MoveTo({FetchSingle(from), FetchSingle(from + 4), FetchSingle(from + 8)});
            from += kVertex;
        }
    }

    void ReadFaces(Brush& brush) {
        const std::int32_t count = file_.ReadCount(kFaceFields + selectedSize_ + kExtensionLength);
        brush.faces.resize(count, BrushFace{});
        for (BrushFace& face : brush.faces) {
            if (file_.Good()) ReadFace(face, brush.vertices.size());
        }
    }

    void ReadFace(BrushFace& face, std::size_t vertexCount) {
        const std::uint8_t* from = file_.Take(kFaceFields + selectedSize_ + kExtensionLength);
        if (!from) return;
        FetchFields(from, face);
        const std::int32_t material = FetchLong(from + 68);
        if (!CornersAreWithin(face, vertexCount) || !materials_.Holds(material)) {
            file_.Fail();
            return;
        }
        face.texture = materials_.TextureOf(material);
        if (withSelection_) face.selected = from[kFaceFields] != 0;
        std::int32_t extension = FetchLong(from + kFaceFields + selectedSize_);
        if (extension == kFaceExtension) {
            from = file_.Take(kFaceExtension);
            if (!from) return;
            face.smooth = *from;
            extension = FetchLong(from + 1);
        }
        file_.Skip(extension);
    }

    /// The fields before the material index.
    static void FetchFields(const std::uint8_t* from, BrushFace& face) {
        face.polygonId = FetchLong(from);
        face.a = FetchLong(from + 4);
        face.b = FetchLong(from + 8);
        face.c = FetchLong(from + 12);
        for (int corner = 0; corner < 3; ++corner) {
            face.uv[corner] = {FetchSingle(from + 16 + 8 * corner),
                               FetchSingle(from + 20 + 8 * corner)};
        }
        face.transparency = FetchLong(from + 40);
        const std::int32_t flags = FetchLong(from + 44);
        face.invisible = (flags & kInvisible) != 0;
        face.localCoords = (flags & kLocalCoords) != 0;
        face.flipped = (flags & kFlipped) != 0;
        face.mirrored = (flags & kMirrored) != 0;
        face.offsetX = FetchSingle(from + 48);
        face.offsetY = FetchSingle(from + 52);
        face.repeatX = FetchSingle(from + 56);
        face.repeatY = FetchSingle(from + 60);
        face.rotation = FetchLong(from + 64);
    }

    /// A negative index is a large one here.
    static bool CornersAreWithin(const BrushFace& face, std::size_t vertexCount) {
        return static_cast<std::uint32_t>(face.a) < vertexCount &&
               static_cast<std::uint32_t>(face.b) < vertexCount &&
               static_cast<std::uint32_t>(face.c) < vertexCount;
    }

    FileReader file_;
    MaterialNameTable materials_;
    bool withSelection_;
    std::size_t selectedSize_;
};

std::optional<std::vector<Brush>> Decode(std::span<const std::uint8_t> bytes, FindTexture find,
                                         bool withSelection, std::int32_t firstIndex) {
    constexpr std::size_t kFarthestCursor = std::numeric_limits<std::int32_t>::max();
    if (bytes.size() > kFarthestCursor) return std::nullopt;
    return ObjectReader(bytes, std::move(find), withSelection).Read(firstIndex);
}

}  // namespace

std::optional<std::vector<Brush>> DecodeObject(std::span<const std::uint8_t> bytes,
                                               const TextureLibrary& library, bool withSelection,
                                               std::int32_t firstIndex) {
    const auto find = [&library](const std::string& name) { return library.IDByFileName(name); };
    return Decode(bytes, find, withSelection, firstIndex);
}

std::optional<std::vector<Brush>> DecodeObjectAndNames(std::span<const std::uint8_t> bytes,
                                                       TextureLibrary& library,
                                                       std::int32_t firstIndex) {
    const auto findOrAdd = [&library](const std::string& name) {
        const std::int32_t found = library.IDByFileName(name);
        if (found != 0 || name.empty()) return found;
        return library.AddTexture(name, library.TextureWidth(0), library.TextureHeight(0));
    };
    return Decode(bytes, findOrAdd, false, firstIndex);
}

}  // namespace korvane
