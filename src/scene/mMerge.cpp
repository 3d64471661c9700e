// Merging by hashing: one pass over the vertices instead of comparing each with every later one.
#include "scene/mMerge.h"

#include <bit>

namespace korvane {
namespace {

std::size_t HashOf(const Vec3& p) {
    const auto bits = [](float f) -> std::uint64_t {
        return std::bit_cast<std::uint32_t>(f + 0.0F);  // one pattern for both zeros
    };
    std::uint64_t h = (bits(p.x) | bits(p.y) << 32) * 0x9E3779B97F4A7C15U;
    h = (h ^ (h >> 32) ^ bits(p.z)) * 0xD6E8FEB86659FD93U;
    return static_cast<std::size_t>(h >> 32);
}

}  // namespace

std::vector<std::int32_t> FirstOfPosition(const std::vector<Vertex>& vertices) {
    constexpr std::int32_t kFree = -1;
    const std::size_t size = std::bit_ceil(2 * vertices.size() + 1);
    std::vector<std::int32_t> slots(size, kFree);
    std::vector<std::int32_t> first(vertices.size());
    for (std::size_t v = 0; v < vertices.size(); ++v) {
        const Vec3 p = vertices[v].Position();
        const auto holds = [&](std::int32_t w) {
            return vertices[static_cast<std::size_t>(w)].Position() == p;
        };
        std::size_t s = HashOf(p) & (size - 1);
        while (slots[s] != kFree && !holds(slots[s])) s = (s + 1) & (size - 1);
        if (slots[s] == kFree) slots[s] = static_cast<std::int32_t>(v);
        first[v] = slots[s];
    }
    return first;
}

void MergeEqualVertices(Brush& brush) {
    const std::vector<std::int32_t> first = FirstOfPosition(brush.vertices);
    for (BrushFace& face : brush.faces) {
        for (std::int32_t* corner : {&face.a, &face.b, &face.c}) {
            *corner = first[static_cast<std::size_t>(*corner)];
        }
    }
}

}  // namespace korvane
