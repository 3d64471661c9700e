// Tools for building the sample objects: brushes made by the program's own construction, moved and
// mapped the way its user could.
#pragma once

#include <functional>
#include <string>

#include "scene/Scene.h"
#include "textures/core/TextureLibrary.h"

namespace korvane {

/// Builds one object. The brush that a call returns is valid until the next brush is added.
class SampleKit {
  public:
    explicit SampleKit(TextureLibrary& library) : library_(library) {}

    /// Group of the brushes added from here on.
    void Group(std::string name) { group_ = std::move(name); }

    /// Texture of the brushes added from here on, laid over all their sides in tiles of `tile`
    /// world units per 256 pixels; 0 stretches one copy over each side. Throws
    /// std::invalid_argument for a texture that the library lacks.
    void Texture(const std::string& filename, double tile);

    /// A box between two corners, the first the lower one on every axis.
    Brush& Block(const Vec3& low, const Vec3& high);

    /// An upright prism of a round cross-section about (x, z).
    Brush& Drum(double x, double z, double radius, double bottom, double top, int sides);

    /// A pointed cone about (x, z).
    Brush& Spire(double x, double z, double radius, double bottom, double top, int sides);

    /// A sphere.
    Brush& Ball(const Vec3& centre, double radius, int sides);

    /// Moves every vertex of the brush added last; normals and texture follow.
    void Reshape(Brush& brush, const std::function<Vec3(const Vec3&)>& move);

    /// Scales the top of the brush added last towards its axis (below 1) or away from it (above 1).
    void Taper(Brush& brush, double factor);

    /// Turns the brush added last about the upright axis through (x, z).
    void Turn(Brush& brush, double degrees, double x, double z);

    /// Lays the texture that many degrees turned on every side.
    void TurnTexture(Brush& brush, int degrees);

    /// Moves all brushes made so far along Z, textures and all.
    void MoveAhead(double distance);

    /// Shades the sides as one round surface; caps stay flat.
    static void Smooth(Brush& brush);

    const Scene& Object() const { return scene_; }

  private:
    Brush& Add(BrushShape shape, const Vec3& low, const Vec3& high, int sides);
    void Lay(Brush& brush) const;

    TextureLibrary& library_;
    Scene scene_;
    std::string group_;
    double tile_ = 1;
};

/// The sample objects.
Scene BuildHouse(TextureLibrary& library);
Scene BuildCastleTower(TextureLibrary& library);
Scene BuildChessboard(TextureLibrary& library);

}  // namespace korvane
