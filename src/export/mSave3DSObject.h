// The 3DStudio file (.3ds): a model of materials and mesh objects in memory, and its chunks.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "scene/Scene.h"

namespace korvane {

/// A colour: red, green, blue.
using Color3DS = std::array<std::uint8_t, 3>;

/// A material of the file.
struct Material3DS {
    std::string name;  ///< "MATER000"
    Color3DS ambient{};
    Color3DS diffuse{};
    Color3DS specular{};
    std::int16_t shininess = 0;  ///< percent, as are the next four
    std::int16_t shininessStrength = 0;
    std::int16_t transparency = 0;
    std::int16_t transparencyFalloff = 0;
    std::int16_t reflectionBlur = 0;
    std::int16_t shading = 3;
    std::int16_t selfIllumination = 0;
    float wireThickness = 1;
    std::string textureName;  ///< UTF-8; empty: no texture map
};

/// A triangle of a mesh object.
struct Face3DS {
    std::array<std::uint16_t, 3> corners{};  ///< vertex indices
    std::uint8_t smooth = 0;                 ///< 1: in smoothing group 1; 0: in none
};

/// A mesh object. Every count fits the 16 bits that the file has for it.
struct Object3DS {
    std::string name;
    std::int32_t material = 0;   ///< index into the model's materials
    bool hasTexCoords = false;   ///< whether texCoords are written, one for every vertex
    std::vector<Vec3> vertices;  ///< as in the editor, Y up
    std::vector<TexCoord> texCoords;
    std::vector<Face3DS> faces;
};

/// What a file holds.
struct Model3DS {
    std::vector<Material3DS> materials;
    std::vector<Object3DS> objects;
};

/// Empties the model.
void ResetModel(Model3DS& model);

/// Appends a material, named "MATER" and its index in three digits or more, and returns that index.
std::int32_t AddMaterial(Model3DS& model, const Color3DS& ambient, const Color3DS& diffuse,
                         const Color3DS& specular, std::int16_t shininess,
                         std::int16_t shininessStrength, std::int16_t transparency,
                         std::string textureName);

/// Appends an object with all it holds and returns its index.
std::int32_t AddModelObject(Model3DS& model, Object3DS object);

/// The model as the bytes of a file; positions are turned from Y up to Z up: (x, -z, y).
/// Every number in it is finite.
std::vector<std::uint8_t> EncodeModel(const Model3DS& model);

/// Stores the model as a file (UTF-8 path). False when it can't be written; the old file is whole
/// then.
bool WriteModel(const Model3DS& model, const std::string& path);

}  // namespace korvane
