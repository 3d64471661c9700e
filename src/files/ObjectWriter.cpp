// Encoding a scene as an object file.
#include <string>
#include <unordered_map>

#include "base/SingleByteText.h"
#include "files/FileBuffer.h"
#include "files/LittleEndian.h"
#include "files/ObjectLayout.h"
#include "files/mObjectFile.h"

namespace korvane {
namespace {

using namespace object_file;

/// The texture file names that the faces use, in the order of their first use. Names equal ignoring
/// letter case share an entry.
class MaterialNameTable {
  public:
    MaterialNameTable(const Scene& scene, const TextureLibrary& library)
        : library_(library), entries_(library.ListCount(), kUnused) {
        for (const Brush& brush : scene.brushes) {
            for (const BrushFace& face : brush.faces) {
                std::int32_t& entry = entries_[Slot(face.texture)];
                if (entry == kUnused) entry = EntryOf(library.TextureFilename(face.texture));
            }
        }
    }

    const std::vector<std::string>& Names() const { return names_; }

    /// The entry of a texture that some face uses.
    std::int32_t IndexOf(std::int32_t texture) const { return entries_[Slot(texture)]; }

  private:
    static constexpr std::int32_t kUnused = -1;

    /// A texture outside the library has no file name, as the placeholder has none.
    std::size_t Slot(std::int32_t texture) const {
        const auto slot = static_cast<std::uint32_t>(texture);
        return slot < entries_.size() ? slot : 0;
    }

    std::int32_t EntryOf(const std::string& name) {
        const auto next = static_cast<std::int32_t>(names_.size());
        const auto [found, isNew] = byLowerCase_.try_emplace(LowerCase(name), next);
        if (isNew) names_.push_back(name);
        return found->second;
    }

    const TextureLibrary& library_;
    std::vector<std::int32_t> entries_;  ///< per index of the library
    std::vector<std::string> names_;
    std::unordered_map<std::string, std::int32_t> byLowerCase_;
};

/// No less than the file needs: a text has at most as many bytes in the file as in UTF-8.
std::size_t CapacityFor(const Scene& scene, const MaterialNameTable& materials,
                        std::size_t faceSize) {
    std::size_t bytes = 12 + 2 * kChunkHeader;
    for (const std::string& name : materials.Names()) bytes += 4 + name.size();
    for (const Brush& brush : scene.brushes) {
        bytes += kSmallestBrush + kSelected + kBrushExtension + brush.name.size() +
                 brush.group.size() + brush.vertices.size() * kVertex +
                 brush.faces.size() * faceSize;
    }
    return bytes;
}

class ObjectWriter {
  public:
    ObjectWriter(const Scene& scene, const TextureLibrary& library, bool withSelection)
        : scene_(scene),
          materials_(scene, library),
          withSelection_(withSelection),
          faceSize_(kFaceFields + (withSelection ? kSelected : 0) + kExtensionLength +
                    kFaceExtension) {}

    std::vector<std::uint8_t> Write() {
        file_.Reserve(CapacityFor(scene_, materials_, faceSize_));
        file_.WriteTag(kHeaderTag);
        file_.WriteLong(0);  // size, set below
        file_.WriteLong(kVersion);
        const std::uint32_t sizes = WriteMaterials() + WriteBrushes();
        file_.SetLong(4, static_cast<std::int32_t>(sizes + 12));
        return file_.TakeBytes();
    }

  private:
    /// Writes the head of a chunk and returns where its size stands.
    std::size_t BeginChunk(std::string_view tag, std::size_t count) {
        file_.WriteTag(tag);
        const std::size_t sizeAt = file_.Bytes().size();
        file_.WriteLong(0);
        file_.WriteLong(0);  // reserved
        file_.WriteLong(static_cast<std::int32_t>(count));
        return sizeAt;
    }

    /// Returns the chunk's size field.
    std::uint32_t WriteMaterials() {
        const std::size_t sizeAt = BeginChunk(kMaterialsTag, materials_.Names().size());
        for (const std::string& name : materials_.Names()) file_.WriteCountedString(name);
        const auto size = static_cast<std::uint32_t>(file_.Bytes().size() - sizeAt + 4);
        file_.SetLong(sizeAt, static_cast<std::int32_t>(size));
        return size;
    }

    /// Returns the chunk's size field, which is a sum of its own and not the chunk's length.
    std::uint32_t WriteBrushes() {
        const std::size_t sizeAt = BeginChunk(kBrushesTag, scene_.brushes.size());
        auto size = static_cast<std::uint32_t>(kChunkHeader);
        for (const Brush& brush : scene_.brushes) {
            size += WriteNames(brush) + 24 + 88 * static_cast<std::uint32_t>(brush.vertices.size());
            WriteBrush(brush);
        }
        file_.SetLong(sizeAt, static_cast<std::int32_t>(size));
        return size;
    }

    /// Returns the number of characters of both names.
    std::uint32_t WriteNames(const Brush& brush) {
        const std::size_t before = file_.Bytes().size();
        file_.WriteCountedString(brush.name);
        file_.WriteCountedString(brush.group);
        return static_cast<std::uint32_t>(file_.Bytes().size() - before - 8);
    }

    void WriteBrush(const Brush& brush) {
        if (withSelection_) file_.WriteByte(brush.selected ? 255 : 0);
        file_.WriteLong(static_cast<std::int32_t>(brush.vertices.size()));
        std::uint8_t* to = file_.Append(brush.vertices.size() * kVertex);
        for (const Vertex& vertex : brush.vertices) {
            to = StoreSingle(StoreSingle(StoreSingle(to, vertex.x), vertex.y), vertex.z);
        }
        file_.WriteLong(static_cast<std::int32_t>(brush.faces.size()));
        to = file_.Append(brush.faces.size() * faceSize_);
        for (const BrushFace& face : brush.faces) to = StoreFace(to, face);
        file_.WriteLong(kBrushExtension);
        file_.WriteLong(brush.shape);
        file_.WriteLong(0);
    }

    std::uint8_t* StoreFace(std::uint8_t* to, const BrushFace& face) const {
        for (const std::int32_t value : {face.polygonId, face.a, face.b, face.c}) {
            to = StoreLong(to, value);
        }
        for (const TexCoord& corner : face.uv)
            to = StoreSingle(StoreSingle(to, corner.u), corner.v);
        to = StoreLong(to, face.transparency);
        to = StoreLong(to, FlagsOf(face));
        for (const float value : {face.offsetX, face.offsetY, face.repeatX, face.repeatY}) {
            to = StoreSingle(to, value);
        }
        to = StoreLong(to, face.rotation);
        to = StoreLong(to, materials_.IndexOf(face.texture));
        if (withSelection_) *to++ = face.selected ? 255 : 0;
        to = StoreLong(to, kFaceExtension);
        *to++ = face.smooth;
        return StoreLong(to, 0);
    }

    static std::int32_t FlagsOf(const BrushFace& face) {
        return (face.invisible ? kInvisible : 0) | (face.localCoords ? kLocalCoords : 0) |
               (face.flipped ? kFlipped : 0) | (face.mirrored ? kMirrored : 0);
    }

    const Scene& scene_;
    MaterialNameTable materials_;
    bool withSelection_;
    std::size_t faceSize_;
    FileWriter file_;
};

}  // namespace

std::vector<std::uint8_t> EncodeObject(const Scene& scene, const TextureLibrary& library,
                                       bool withSelection) {
    return ObjectWriter(scene, library, withSelection).Write();
}

}  // namespace korvane
