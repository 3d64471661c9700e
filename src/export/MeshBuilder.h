// Collects triangles into the mesh objects of a 3DStudio model: smooth triangles share vertices,
// and an object that is full is closed and followed by the next part.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "export/mSave3DSObject.h"

namespace korvane {

/// Finds the vertex of a position among those of the open object, the one added last where several
/// are equal.
class VertexFinder {
  public:
    static constexpr std::uint16_t kNone = 0xFFFF;

    /// Forgets everything.
    void Clear();

    /// The index of the vertex added last that equals the point exactly, or kNone. Vertices are
    /// taken in when they are first searched: an object without smooth triangles needs no search.
    std::uint16_t Find(const std::vector<Vec3>& vertices, const Vec3& point);

  private:
    void TakeIn(const std::vector<Vec3>& vertices);
    std::size_t SlotOf(const std::vector<Vec3>& vertices, const Vec3& point) const;

    std::vector<std::uint16_t> slots_;  ///< open addressing, a power of two of them
    int shift_ = 0;                     ///< brings a hash down to a slot
    std::size_t taken_ = 0;             ///< vertices taken in so far
};

/// The one open object.
class MeshBuilder {
  public:
    /// No object holds more triangles, so that three vertices for each stay within 16 bits.
    static constexpr std::size_t kMostTriangles = 10000;

    /// Builds into the model. `partCounter` numbers the objects and is the caller's, so that it can
    /// run on. Both must outlive the builder.
    MeshBuilder(Model3DS& model, std::int32_t& partCounter)
        : model_(model), partCounter_(partCounter) {}

    /// Opens an empty object of a material; without `keepCounter` the numbering starts at 0.
    /// Makes room for the `expected` triangles to come.
    void BeginObject(std::string baseName, std::int32_t material, bool hasTexCoords,
                     bool keepCounter, std::size_t expected = 0);

    /// Adds a triangle. With `smooth` a corner takes a vertex of exactly its position where there
    /// is one, the last such, and that vertex keeps its texture coordinates. A full object is
    /// ended.
    void AddTriangle(const Vec3& p1, const Vec3& p2, const Vec3& p3, const TexCoord& uv1,
                     const TexCoord& uv2, const TexCoord& uv3, std::uint8_t smooth);

    /// Appends the open object to the model unless it is empty, and opens the next part.
    void EndObject();

  private:
    std::string PartName() const;

    Model3DS& model_;
    std::int32_t& partCounter_;
    std::string baseName_;
    std::size_t expected_ = 0;
    Object3DS open_;
    VertexFinder finder_;
};

}  // namespace korvane
