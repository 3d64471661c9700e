#include "SceneCheck.h"

#include <cmath>
#include <cstring>

#include "export/mExport3DS.h"
#include "export/mSourceCode.h"
#include "files/FileBuffer.h"
#include "files/LittleEndian.h"
#include "scene/mConvex.h"
#include "scene/mNormals.h"
#include "scene/mStatistics.h"
#include "scene/mTextureCoords.h"

namespace korvane::fuzz {
namespace {

/// More faces than this only repeat what fewer show, and cost the fuzzer its speed.
constexpr std::int64_t kMostExported = 2000;

/// All numbers of a face and nothing else.
CodeTemplate NumbersOnly() {
    CodeTemplate code;
    for (const CodeTagGroup& group : CodeTagGroups()) {
        for (const std::string tag : group.tags)
            if (tag != "%TextureName%" && tag != "%FACEINFO%") code.body += tag + " ";
    }
    return code;
}

void CheckSourceText(const Scene& scene, const TextureLibrary& library) {
    static const CodeTemplate code = NumbersOnly();
    const std::string text = SourceCodeText(code, scene, library);
    Require(text.find_first_not_of("0123456789.- \r\n") == std::string::npos,
            "source text holds numbers where numbers belong");
}

/// Every chunk ends within the one that holds it, and positions and texture coordinates are
/// numbers.
void RequireChunks(FileReader file) {
    enum Id : std::uint32_t {
        kEditor = 0x3D3D,
        kNamedObject = 0x4000,
        kMesh = 0x4100,
        kVertices = 0x4110,
        kTexCoords = 0x4140,
        kMain = 0x4D4D
    };
    constexpr std::int32_t kHeader = 6;
    while (!file.AtEnd() && file.Good()) {
        const std::uint32_t low = file.ReadByte();
        const std::uint32_t id = low | std::uint32_t{file.ReadByte()} << 8;
        const std::int32_t content = file.ReadLong() - kHeader;
        const std::size_t size = static_cast<std::size_t>(std::max(content, 0));
        const std::uint8_t* at = file.Take(size);
        Require(content >= 0 && at != nullptr, "the chunks of a 3DS file nest");
        if (id == kMain || id == kEditor || id == kMesh) RequireChunks(FileReader({at, size}));
        if (id == kNamedObject) {
            const std::size_t name = std::strlen(reinterpret_cast<const char*>(at)) + 1;
            RequireChunks(FileReader({at + name, size - name}));
        }
        if (id != kVertices && id != kTexCoords) continue;
        for (std::size_t i = 2; i < size; i += 4)
            Require(std::isfinite(FetchSingle(at + i)), "a 3DS file holds finite numbers");
    }
}

void Check3DS(const Scene& scene, const TextureLibrary& library) {
    std::int32_t counter = 0;
    const Model3DS model = Build3DS(scene, library, counter);
    for (const Object3DS& object : model.objects) {
        Require(object.vertices.size() <= 0xFFFF && object.faces.size() <= 0xFFFF,
                "the counts of a mesh fit their 16 bits");
        Require(!object.hasTexCoords || object.texCoords.size() == object.vertices.size(),
                "every vertex of a mesh has texture coordinates");
        for (const Face3DS& face : object.faces)
            for (const std::uint16_t corner : face.corners)
                Require(corner < object.vertices.size(), "corners are vertices of the mesh");
    }
    const Bytes file = EncodeModel(model);
    RequireChunks(FileReader(file));
}

void CheckStatistics(const Scene& scene, const TextureLibrary& library) {
    const Statistics statistics = CountStatistics(scene, library);
    Require(statistics[BrushTotal] == std::ssize(scene.brushes), "every brush counts");
    Require(statistics[FaceTotal] <= statistics[TriangleTotal], "a face has a triangle");
    for (const double bar : BarsOf(statistics))
        Require(bar >= 0 && bar <= 1, "bars fit the dialog");
    Require(std::ssize(GroupsOf(scene)) <= statistics[BrushTotal], "no more groups than brushes");
    TextureNamesOf(scene, library);
}

/// What the editor computes once it shows a scene.
void CheckDerived(Scene scene, const TextureLibrary& library) {
    const Bounds bounds = SceneBounds(scene);
    Require(bounds.min.x <= bounds.max.x && bounds.min.y <= bounds.max.y &&
                bounds.min.z <= bounds.max.z,
            "bounds are in order");
    for (Brush& brush : scene.brushes) {
        IsConvexSolid(brush);
        UpdateTextureCoords(brush, {library, 4.0F});
    }
}

}  // namespace

void CheckScene(const Scene& scene, const TextureLibrary& library) {
    CheckStatistics(scene, library);
    if (CountStatistics(scene, library)[TriangleTotal] > kMostExported) return;
    CheckDerived(scene, library);
    CheckSourceText(scene, library);
    Check3DS(scene, library);
}

}  // namespace korvane::fuzz
