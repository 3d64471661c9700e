#include "export/mSave3DSObject.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/SingleByteText.h"
#include "files/FileBuffer.h"
#include "files/LittleEndian.h"

namespace korvane {
namespace {

enum ChunkId : std::uint16_t {
    kVersion = 0x0002,
    kColor = 0x0011,
    kPercentage = 0x0030,
    kMasterScale = 0x0100,
    kEditor = 0x3D3D,
    kMeshVersion = 0x3D3E,
    kNamedObject = 0x4000,
    kTriangleMesh = 0x4100,
    kVertexList = 0x4110,
    kFaceList = 0x4120,
    kMaterialGroup = 0x4130,
    kTextureVertices = 0x4140,
    kSmoothingGroups = 0x4150,
    kLocalAxes = 0x4160,
    kMain = 0x4D4D,
    kMaterialName = 0xA000,
    kAmbient = 0xA010,
    kDiffuse = 0xA020,
    kSpecular = 0xA030,
    kShininess = 0xA040,
    kShininessStrength = 0xA041,
    kTransparency = 0xA050,
    kTransparencyFalloff = 0xA052,
    kReflectionBlur = 0xA053,
    kSelfIllumination = 0xA084,
    kWireThickness = 0xA087,
    kShading = 0xA100,
    kTextureMap = 0xA200,
    kMapFileName = 0xA300,
    kMapTiling = 0xA351,
    kMapBlur = 0xA353,
    kMaterialEntry = 0xAFFF
};

// Lengths in bytes. A chunk's counts its header and everything nested in it.
constexpr std::size_t kHeader = 6;
constexpr std::size_t kColorChunk = kHeader + 3;
constexpr std::size_t kPercentageChunk = kHeader + 2;
constexpr std::size_t kSingleChunk = kHeader + 4;
constexpr std::size_t kLocalAxesChunk = kHeader + 12 * 4;
constexpr std::size_t kCount = 2;
constexpr std::size_t kVertexBytes = 12;
constexpr std::size_t kTexCoordBytes = 8;
constexpr std::size_t kCornersAndFlags = 8;

constexpr std::uint16_t kAllEdgesVisible = 7;
constexpr float kMasterScaleValue = 39.370079F;  // inches in a metre

std::size_t NameChunk(const std::string& name) {
    return kHeader + name.size() + 1;
}

std::size_t TextureMapLength(const std::string& textureName) {
    return kHeader + kPercentageChunk + NameChunk(textureName) + kPercentageChunk + kSingleChunk;
}

std::size_t MaterialLength(const Material3DS& material, const std::string& textureName) {
    const std::size_t fixed = 3 * (kHeader + kColorChunk) + 6 * (kHeader + kPercentageChunk) +
                              kPercentageChunk + kSingleChunk;
    return kHeader + NameChunk(material.name) + fixed +
           (textureName.empty() ? 0 : TextureMapLength(textureName));
}

std::size_t MaterialGroupLength(const std::string& materialName, std::size_t faces) {
    return NameChunk(materialName) + kCount + 2 * faces;
}

std::size_t SmoothingLength(std::size_t faces) {
    return kHeader + 4 * faces;
}

std::size_t FaceListLength(const std::string& materialName, std::size_t faces) {
    return kHeader + kCount + kCornersAndFlags * faces + MaterialGroupLength(materialName, faces) +
           SmoothingLength(faces);
}

std::size_t MeshLength(const Object3DS& object, const std::string& materialName) {
    const std::size_t vertices = object.vertices.size();
    const std::size_t list = kHeader + kCount;
    return kHeader + list + kVertexBytes * vertices +
           (object.hasTexCoords ? list + kTexCoordBytes * vertices : 0) + kLocalAxesChunk +
           FaceListLength(materialName, object.faces.size());
}

/// Finite(value) rounded to 6 decimal places, as Round does it, at a third of its cost: a million
/// is nothing special for an export.
float RoundedTo6(float value) {
    constexpr double kScale = 1e6;
    constexpr double kToWhole = 6755399441055744.0;  // 1.5 * 2^52: no room for a fraction above it
    constexpr float kWholeFrom = 8388608.0F;         // 2^23: floats from here on have no fraction
    if (!(std::abs(value) < kWholeFrom)) return Finite(value);
    const double scaled = double{value} * kScale;
    const double whole = scaled + kToWhole - kToWhole;
    return static_cast<float>(std::copysign(whole / kScale, scaled));
}

/// Composes the chunks in file order; every length is known beforehand.
class ModelWriter {
  public:
    explicit ModelWriter(const Model3DS& model) : model_(model) {
        // Names are stored in the code page: one byte a character.
        for (const Material3DS& material : model.materials)
            textureNames_.push_back(ToSingleByte(material.textureName));
    }

    std::vector<std::uint8_t> Write() {
        std::size_t materials = 0;
        std::size_t objects = 0;
        for (std::size_t i = 0; i < model_.materials.size(); ++i)
            materials += MaterialLength(model_.materials[i], textureNames_[i]);
        for (const Object3DS& object : model_.objects) {
            objects += NameChunk(object.name) + MeshLength(object, MaterialName(object));
        }
        const std::size_t editor = kHeader + 2 * kSingleChunk + materials + objects;
        file_.Reserve(kHeader + kSingleChunk + editor);
        Header(kMain, kHeader + kSingleChunk + editor);
        LongChunk(kVersion, 3);
        Header(kEditor, editor);
        LongChunk(kMeshVersion, 3);
        for (std::size_t i = 0; i < model_.materials.size(); ++i)
            WriteMaterial(model_.materials[i], textureNames_[i]);
        SingleChunk(kMasterScale, kMasterScaleValue);
        for (const Object3DS& object : model_.objects) WriteObject(object);
        return file_.TakeBytes();
    }

  private:
    const std::string& MaterialName(const Object3DS& object) const {
        return model_.materials[static_cast<std::size_t>(object.material)].name;
    }

    void Short(std::uint16_t value) { StoreShort(file_.Append(2), value); }

    void Header(ChunkId id, std::size_t length) {
        Short(id);
        file_.WriteLong(static_cast<std::int32_t>(length));
    }

    void Name(const std::string& bytes) {
        std::copy(bytes.begin(), bytes.end(), file_.Append(bytes.size() + 1));
    }

    void LongChunk(ChunkId id, std::int32_t value) {
        Header(id, kSingleChunk);
        file_.WriteLong(value);
    }

    void SingleChunk(ChunkId id, float value) {
        Header(id, kSingleChunk);
        file_.WriteSingle(value);
    }

    void ShortChunk(ChunkId id, std::int16_t value) {
        Header(id, kPercentageChunk);
        Short(static_cast<std::uint16_t>(value));
    }

    void ColorChunk(ChunkId id, const Color3DS& color) {
        Header(id, kHeader + kColorChunk);
        Header(kColor, kColorChunk);
        for (const std::uint8_t part : color) file_.WriteByte(part);
    }

    void PercentageChunk(ChunkId id, std::int16_t value) {
        Header(id, kHeader + kPercentageChunk);
        ShortChunk(kPercentage, value);
    }

    void NamedChunk(ChunkId id, const std::string& bytes) {
        Header(id, NameChunk(bytes));
        Name(bytes);
    }

    void WriteMaterial(const Material3DS& material, const std::string& textureName) {
        Header(kMaterialEntry, MaterialLength(material, textureName));
        NamedChunk(kMaterialName, material.name);
        ColorChunk(kAmbient, material.ambient);
        ColorChunk(kDiffuse, material.diffuse);
        ColorChunk(kSpecular, material.specular);
        PercentageChunk(kShininess, material.shininess);
        PercentageChunk(kShininessStrength, material.shininessStrength);
        PercentageChunk(kTransparency, material.transparency);
        PercentageChunk(kTransparencyFalloff, material.transparencyFalloff);
        PercentageChunk(kReflectionBlur, material.reflectionBlur);
        ShortChunk(kShading, material.shading);
        PercentageChunk(kSelfIllumination, material.selfIllumination);
        SingleChunk(kWireThickness, material.wireThickness);
        if (!textureName.empty()) WriteTextureMap(textureName);
    }

    void WriteTextureMap(const std::string& textureName) {
        Header(kTextureMap, TextureMapLength(textureName));
        ShortChunk(kPercentage, 100);
        NamedChunk(kMapFileName, textureName);
        ShortChunk(kMapTiling, 0);
        SingleChunk(kMapBlur, 0);
    }

    void WriteObject(const Object3DS& object) {
        const std::size_t mesh = MeshLength(object, MaterialName(object));
        Header(kNamedObject, NameChunk(object.name) + mesh);
        Name(object.name);
        Header(kTriangleMesh, mesh);
        WriteVertices(object.vertices);
        if (object.hasTexCoords) WriteTexCoords(object.texCoords);
        WriteLocalAxes();
        WriteFaces(object.faces, MaterialName(object));
    }

    /// The header and count of a list of records; returns the place of the records.
    std::uint8_t* ListChunk(ChunkId id, std::size_t count, std::size_t recordSize) {
        Header(id, kHeader + kCount + count * recordSize);
        Short(static_cast<std::uint16_t>(count));
        return file_.Append(count * recordSize);
    }

    void WriteVertices(const std::vector<Vec3>& vertices) {
        std::uint8_t* to = ListChunk(kVertexList, vertices.size(), kVertexBytes);
        for (const Vec3& vertex : vertices) {
            for (const float value : {vertex.x, -vertex.z, vertex.y})
                to = StoreSingle(to, RoundedTo6(value));
        }
    }

    void WriteTexCoords(const std::vector<TexCoord>& texCoords) {
        std::uint8_t* to = ListChunk(kTextureVertices, texCoords.size(), kTexCoordBytes);
        for (const TexCoord& corner : texCoords)
            to = StoreSingle(StoreSingle(to, Finite(corner.u)), Finite(corner.v));
    }

    void WriteLocalAxes() {
        static constexpr float axes[] = {1, 0, 0, 0, 1, 0, 0, 0, 1, 0.001F, 0.001F, 0.001F};
        Header(kLocalAxes, kLocalAxesChunk);
        for (const float value : axes) file_.WriteSingle(value);
    }

    void WriteFaces(const std::vector<Face3DS>& faces, const std::string& materialName) {
        Header(kFaceList, FaceListLength(materialName, faces.size()));
        Short(static_cast<std::uint16_t>(faces.size()));
        std::uint8_t* to = file_.Append(faces.size() * kCornersAndFlags);
        for (const Face3DS& face : faces) {
            for (const std::uint16_t corner : face.corners) to = StoreShort(to, corner);
            to = StoreShort(to, kAllEdgesVisible);
        }
        Header(kMaterialGroup, MaterialGroupLength(materialName, faces.size()));
        Name(materialName);
        Short(static_cast<std::uint16_t>(faces.size()));
        to = file_.Append(faces.size() * 2);
        for (std::size_t i = 0; i < faces.size(); ++i)
            to = StoreShort(to, static_cast<std::uint16_t>(i));
        Header(kSmoothingGroups, SmoothingLength(faces.size()));
        to = file_.Append(faces.size() * 4);
        for (const Face3DS& face : faces) to = StoreLong(to, face.smooth);
    }

    const Model3DS& model_;
    std::vector<std::string> textureNames_;  ///< of the materials, Windows-1252
    FileWriter file_;
};

}  // namespace

void ResetModel(Model3DS& model) {
    model = {};
}

std::int32_t AddMaterial(Model3DS& model, const Color3DS& ambient, const Color3DS& diffuse,
                         const Color3DS& specular, std::int16_t shininess,
                         std::int16_t shininessStrength, std::int16_t transparency,
                         std::string textureName) {
    Material3DS material;
    const auto index = static_cast<std::int32_t>(model.materials.size());
    material.name = "MATER" + FormatPadded(index, 3);
    material.ambient = ambient;
    material.diffuse = diffuse;
    material.specular = specular;
    material.shininess = shininess;
    material.shininessStrength = shininessStrength;
    material.transparency = transparency;
    material.textureName = std::move(textureName);
    model.materials.push_back(std::move(material));
    return index;
}

std::int32_t AddModelObject(Model3DS& model, Object3DS object) {
    model.objects.push_back(std::move(object));
    return static_cast<std::int32_t>(model.objects.size()) - 1;
}

std::vector<std::uint8_t> EncodeModel(const Model3DS& model) {
    return ModelWriter(model).Write();
}

bool WriteModel(const Model3DS& model, const std::string& path) {
    return SaveFile(path, EncodeModel(model));
}

}  // namespace korvane
