#include "export/MeshBuilder.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "base/NumberText.h"

namespace korvane {
namespace {

constexpr std::size_t kFewestSlots = 64;
constexpr std::size_t kNameLength = 8;

/// The upper bits are the good ones. Equal for equal positions: -0 and 0 are.
std::uint64_t HashOf(const Vec3& p) {
    const auto bits = [](float value) -> std::uint64_t {
        return std::bit_cast<std::uint32_t>(value + 0.0F);
    };
    return bits(p.x) * 0x9E3779B97F4A7C15U + bits(p.y) * 0xC2B2AE3D27D4EB4FU +
           bits(p.z) * 0x165667B19E3779F9U;
}

bool Equal(const Vec3& a, const Vec3& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

}  // namespace

void VertexFinder::Clear() {
    slots_.clear();
    taken_ = 0;
}

/// The slot of the point, or the free one where it belongs.
std::size_t VertexFinder::SlotOf(const std::vector<Vec3>& vertices, const Vec3& point) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = HashOf(point) >> shift_;
    while (slots_[slot] != kNone && !Equal(vertices[slots_[slot]], point)) slot = (slot + 1) & mask;
    return slot;
}

/// Keeps at least half of the slots free.
void VertexFinder::TakeIn(const std::vector<Vec3>& vertices) {
    if (slots_.size() < 2 * vertices.size()) {
        slots_.assign(std::max(kFewestSlots, std::bit_ceil(4 * vertices.size())), kNone);
        shift_ = 64 - std::countr_zero(slots_.size());
        taken_ = 0;
    }
    for (; taken_ < vertices.size(); ++taken_) {
        const Vec3& vertex = vertices[taken_];
        if (!Equal(vertex, vertex)) continue;  // not a number equals nothing, and would pile up
        slots_[SlotOf(vertices, vertex)] = static_cast<std::uint16_t>(taken_);
    }
}

std::uint16_t VertexFinder::Find(const std::vector<Vec3>& vertices, const Vec3& point) {
    if (vertices.empty()) return kNone;
    if (taken_ != vertices.size()) TakeIn(vertices);
    return slots_[SlotOf(vertices, point)];
}

void MeshBuilder::BeginObject(std::string baseName, std::int32_t material, bool hasTexCoords,
                              bool keepCounter, std::size_t expected) {
    baseName_ = std::move(baseName);
    expected_ = expected;
    open_ = {};
    const std::size_t next = std::min(expected, kMostTriangles);
    open_.faces.reserve(next);
    open_.vertices.reserve(3 * next);
    open_.texCoords.reserve(3 * next);
    open_.material = material;
    open_.hasTexCoords = hasTexCoords;
    finder_.Clear();
    if (!keepCounter) partCounter_ = 0;
}

void MeshBuilder::AddTriangle(const Vec3& p1, const Vec3& p2, const Vec3& p3, const TexCoord& uv1,
                              const TexCoord& uv2, const TexCoord& uv3, std::uint8_t smooth) {
    const std::array<const Vec3*, 3> points{&p1, &p2, &p3};
    const std::array<const TexCoord*, 3> uvs{&uv1, &uv2, &uv3};
    Face3DS face;
    face.smooth = smooth;
    face.corners.fill(VertexFinder::kNone);
    // All corners are searched before any is appended: a triangle does not share with itself.
    for (std::size_t i = 0; smooth != 0 && i < 3; ++i)
        face.corners[i] = finder_.Find(open_.vertices, *points[i]);
    for (std::size_t i = 0; i < 3; ++i) {
        if (face.corners[i] != VertexFinder::kNone) continue;
        face.corners[i] = static_cast<std::uint16_t>(open_.vertices.size());
        open_.vertices.push_back(*points[i]);
        open_.texCoords.push_back(*uvs[i]);
    }
    open_.faces.push_back(face);
    if (open_.faces.size() >= kMostTriangles) EndObject();
}

std::string MeshBuilder::PartName() const {
    if (baseName_.size() >= kNameLength) return baseName_;
    return baseName_ + FormatPadded(partCounter_, static_cast<int>(kNameLength - baseName_.size()));
}

void MeshBuilder::EndObject() {
    if (open_.vertices.empty() && open_.faces.empty()) return;
    open_.name = PartName();
    const std::int32_t material = open_.material;
    const bool hasTexCoords = open_.hasTexCoords;
    const std::size_t left = expected_ - std::min(expected_, open_.faces.size());
    AddModelObject(model_, std::move(open_));
    ++partCounter_;
    BeginObject(std::move(baseName_), material, hasTexCoords, true, left);
}

}  // namespace korvane
