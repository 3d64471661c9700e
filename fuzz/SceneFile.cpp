#include "SceneCheck.h"
#include "files/mObjectFile.h"

namespace korvane::fuzz {
namespace {

/// The numbers of a face, the bits of its flags among them.
std::vector<float> NumbersOf(const BrushFace& face) {
    std::vector<float> numbers{face.offsetX, face.offsetY, face.repeatX, face.repeatY};
    for (const TexCoord& corner : face.uv) numbers.insert(numbers.end(), {corner.u, corner.v});
    const auto add = [&](const Vec3& v) { numbers.insert(numbers.end(), {v.x, v.y, v.z}); };
    add(face.normal);
    for (const Vec3& normal : face.cornerNormals) add(normal);
    for (const std::int32_t whole : {face.a, face.b, face.c, face.texture, face.rotation,
                                     face.polygonId, face.transparency, std::int32_t{face.smooth}})
        numbers.push_back(std::bit_cast<float>(whole));
    for (const Flag16 flag :
         {face.selected, face.localCoords, face.flipped, face.mirrored, face.invisible})
        numbers.push_back(flag.raw);
    return numbers;
}

std::vector<float> NumbersOf(const Vertex& vertex) {
    return {vertex.x, vertex.y, vertex.z, static_cast<float>(vertex.selected.raw)};
}

template <class Record>
bool SameRecords(const std::vector<Record>& a, const std::vector<Record>& b) {
    return std::ranges::equal(a, b, [](const Record& x, const Record& y) {
        return SameBits(NumbersOf(x), NumbersOf(y));
    });
}

bool SameBrush(const Brush& a, const Brush& b) {
    return a.name == b.name && a.group == b.group && a.shape == b.shape &&
           a.selected.raw == b.selected.raw && SameRecords(a.vertices, b.vertices) &&
           SameRecords(a.faces, b.faces);
}

void RequireSound(const std::vector<Brush>& brushes, const TextureLibrary& library) {
    for (std::size_t i = 0; i < brushes.size(); ++i) {
        const Brush& brush = brushes[i];
        Require(brush.name == DefaultBrushName(static_cast<std::int32_t>(i)), "names tell places");
        for (const BrushFace& face : brush.faces) {
            for (const std::int32_t corner : {face.a, face.b, face.c})
                Require(static_cast<std::uint32_t>(corner) < brush.vertices.size(),
                        "corners are vertices of the brush");
            Require(face.texture >= 0 && face.texture < library.ListCount(),
                    "textures are in the library");
        }
    }
}

/// The brushes as they come back from a file of their own.
void RequireRoundTrip(const Scene& scene, const TextureLibrary& library, bool withSelection) {
    const Bytes saved = EncodeObject(scene, library, withSelection);
    Scene again;
    auto brushes = DecodeObject(saved, library, withSelection);
    Require(brushes.has_value(), "what loads can be saved and loaded again");
    again.brushes = std::move(*brushes);
    Require(std::ranges::equal(scene.brushes, again.brushes, SameBrush),
            "the scene comes back from its file");
    Require(EncodeObject(again, library, withSelection) == saved,
            "the second file equals the first");
}

}  // namespace

const TextureLibrary& Library() {
    static const TextureLibrary library = [] {
        TextureLibrary textures;
        textures.AddTexture("brick.jpg", 256, 128);
        textures.AddTexture("sand.tga", 512, 512);
        textures.AddTexture("stra\u00DFe.png", 32, 1024);
        return textures;
    }();
    return library;
}

void CheckSceneFile(Input input, bool withSelection) {
    std::optional<std::vector<Brush>> brushes;
    {
        const HeapMeter meter;
        brushes = DecodeObject(input, Library(), withSelection);
        meter.RequireWithin(Allowance(input, 8));
    }
    if (!brushes) return;
    RequireSound(*brushes, Library());
    Scene scene;
    scene.brushes = std::move(*brushes);
    RequireRoundTrip(scene, Library(), withSelection);
    CheckScene(scene, Library());
}

void CheckSnapshot(Input input) {
    CheckSceneFile(input, true);
}

/// Reads an object file in the second way as well, which keeps the texture names.
void CheckObject(Input input) {
    CheckSceneFile(input, false);
    TextureLibrary grown;
    auto brushes = DecodeObjectAndNames(input, grown);
    Require(brushes.has_value() == DecodeObject(input, Library(), false).has_value(),
            "both ways of reading agree on what is valid");
    if (!brushes) return;
    RequireSound(*brushes, grown);
    Scene scene;
    scene.brushes = std::move(*brushes);
    RequireRoundTrip(scene, grown, false);
}

}  // namespace korvane::fuzz
