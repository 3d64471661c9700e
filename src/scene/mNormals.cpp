// Face normals, shading normals and bounds.
//
// A shading normal is the average of the distinct normals of the sides that meet a vertex, summed
// in a fixed order: the face's own normal first, then the others in face order. Since the order
// decides the last bit of a sum, the work is arranged per vertex in a way that keeps it: one list
// of the vertex's distinct normals in face order serves all faces there, each taking its own entry
// out of the row and putting it in front. Where every sum is exact the order does not matter and
// one sum serves them all, which is what makes apexes and poles cheap.
#include "scene/mNormals.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>

namespace korvane {
namespace {

constexpr std::int32_t kLastCapId = 2;

struct Sum {
    double x = 0;  // +0: a list of negative zeros averages to +0
    double y = 0;
    double z = 0;

    void Add(const Vec3& n) {
        x += n.x;
        y += n.y;
        z += n.z;
    }

    Vec3 Average(std::size_t count) const {
        const auto divisor = static_cast<double>(count);
        return {static_cast<float>(x / divisor), static_cast<float>(y / divisor),
                static_cast<float>(z / divisor)};
    }
};

Vec3 UnitNormal(const Vec3& a, const Vec3& b, const Vec3& c) {
    const double ux = double{a.x} - c.x, uy = double{a.y} - c.y, uz = double{a.z} - c.z;
    const double vx = double{b.x} - c.x, vy = double{b.y} - c.y, vz = double{b.z} - c.z;
    const double x = uy * vz - uz * vy;
    const double y = uz * vx - ux * vz;
    const double z = ux * vy - uy * vx;
    const double length = std::sqrt(x * x + y * y + z * z);
    if (!(length > 0) || std::isinf(length)) return {0, 0, 0};  // not finite: no direction either
    return {static_cast<float>(x / length), static_cast<float>(y / length),
            static_cast<float>(z / length)};
}

// Components of unit normals that are multiples of 2^-45 add up without rounding as long as there
// are at most kMaxExact of them: every partial sum stays below 2^8, so it fits into 53 bits.
constexpr std::size_t kMaxExact = 200;

bool AddsExactly(const Vec3& n) {
    constexpr double kBias = 192;  // in [128, 256) the last bit of a double weighs 2^-45
    const auto whole = [](double x) { return (x + kBias) - kBias == x; };
    return whole(n.x) && whole(n.y) && whole(n.z);
}

/// The distinct normals at one vertex in the order of their first appearance. Short lists are
/// searched, long ones (apexes, poles) hashed.
class DistinctNormals {
  public:
    void Clear() {
        normals_.clear();
        slots_.clear();
        exact_ = true;
    }

    /// Index of the normal in the list, adding it where it is new. -0 equals +0.
    std::uint32_t IndexOf(const Vec3& n) {
        if (!slots_.empty()) return IndexByHash(n);
        const auto count = static_cast<std::uint32_t>(normals_.size());
        for (std::uint32_t i = 0; i < count; ++i) {
            if (normals_[i] == n) return i;
        }
        Append(n);
        if (normals_.size() > kMaxSearched) Rehash(8 * kMaxSearched);
        return count;
    }

    /// The averages that a face sees whose own normal is entry i, for every i.
    void AverageInto(std::vector<Vec3>& averages) const {
        const std::size_t count = normals_.size();
        averages.clear();
        if (exact_ && count <= kMaxExact) {
            Sum sum;
            for (const Vec3& n : normals_) sum.Add(n);
            averages.assign(count, sum.Average(count));
            return;
        }
        for (std::size_t own = 0; own < count; ++own) {
            Sum sum;
            sum.Add(normals_[own]);
            for (std::size_t i = 0; i < count; ++i) {
                if (i != own) sum.Add(normals_[i]);
            }
            averages.push_back(sum.Average(count));
        }
    }

  private:
    static constexpr std::size_t kMaxSearched = 16;

    void Append(const Vec3& n) {
        normals_.push_back(n);
        exact_ = exact_ && AddsExactly(n);
    }

    static std::size_t HashOf(const Vec3& n) {
        const auto bits = [](float f) -> std::uint64_t {
            return std::bit_cast<std::uint32_t>(f + 0.0F);  // one pattern for both zeros
        };
        std::uint64_t h = (bits(n.x) | bits(n.y) << 32) * 0x9E3779B97F4A7C15U;
        h = (h ^ (h >> 32) ^ bits(n.z)) * 0xD6E8FEB86659FD93U;
        return static_cast<std::size_t>(h >> 32);
    }

    /// The slot that holds n, or the free one where it belongs.
    std::uint32_t& SlotOf(const Vec3& n) {
        const std::size_t mask = slots_.size() - 1;
        std::size_t s = HashOf(n) & mask;
        while (slots_[s] != 0 && !(normals_[slots_[s] - 1] == n)) s = (s + 1) & mask;
        return slots_[s];
    }

    void Rehash(std::size_t size) {
        slots_.assign(size, 0);
        for (std::uint32_t i = 0; i < normals_.size(); ++i) SlotOf(normals_[i]) = i + 1;
    }

    std::uint32_t IndexByHash(const Vec3& n) {
        std::uint32_t& slot = SlotOf(n);
        if (slot != 0) return slot - 1;
        Append(n);
        const auto count = static_cast<std::uint32_t>(normals_.size());
        slot = count;
        if (2 * normals_.size() > slots_.size()) Rehash(2 * slots_.size());
        return count - 1;
    }

    std::vector<Vec3> normals_;
    std::vector<std::uint32_t> slots_;  // index + 1 into normals_, 0 free; empty: not hashed
    bool exact_ = true;
};

/// One corner of a side.
struct Corner {
    std::uint32_t face;
    std::uint32_t place;  // 0..2 for a, b, c
};

/// Averages the normals of the sides at every vertex. The lists live on from brush to brush, so
/// that a recomputation allocates nothing.
class Smoother {
  public:
    void Run(Brush& brush) {
        Collect(brush);
        for (std::size_t v = 0; v < brush.vertices.size(); ++v) SmoothVertex(brush, v);
    }

  private:
    /// Lists the side corners of every vertex in face order: those of vertex v stand in corners_
    /// from ends_[v - 1] (0 for the first) to ends_[v].
    void Collect(const Brush& brush) {
        ends_.assign(brush.vertices.size() + 1, 0);
        ForSideCorners(brush, [&](std::int32_t v, Corner) { ++ends_[Index(v) + 1]; });
        for (std::size_t v = 1; v < ends_.size(); ++v) ends_[v] += ends_[v - 1];
        corners_.resize(ends_.back());
        ForSideCorners(brush, [&](std::int32_t v, Corner c) { corners_[ends_[Index(v)]++] = c; });
    }

    template <class Action>
    static void ForSideCorners(const Brush& brush, Action action) {
        for (std::uint32_t f = 0; f < brush.faces.size(); ++f) {
            const BrushFace& face = brush.faces[f];
            if (face.polygonId <= kLastCapId) continue;
            action(face.a, Corner{f, 0});
            action(face.b, Corner{f, 1});
            action(face.c, Corner{f, 2});
        }
    }

    void SmoothVertex(Brush& brush, std::size_t v) {
        const std::uint32_t first = v == 0 ? 0 : ends_[v - 1];
        const std::uint32_t end = ends_[v];
        if (first == end) return;
        distinct_.Clear();
        entries_.clear();
        for (std::uint32_t i = first; i < end; ++i) {
            entries_.push_back(distinct_.IndexOf(brush.faces[corners_[i].face].normal));
        }
        distinct_.AverageInto(averages_);
        for (std::uint32_t i = first; i < end; ++i) {
            const Corner& corner = corners_[i];
            brush.faces[corner.face].cornerNormals[corner.place] = averages_[entries_[i - first]];
        }
    }

    static std::size_t Index(std::int32_t v) { return static_cast<std::size_t>(v); }

    std::vector<std::uint32_t> ends_;
    std::vector<Corner> corners_;
    std::vector<std::uint32_t> entries_;
    std::vector<Vec3> averages_;
    DistinctNormals distinct_;
};

Vec3 PositionOf(const Brush& brush, std::int32_t vertex) {
    return brush.vertices[static_cast<std::size_t>(vertex)].Position();
}

void Extend(Bounds& bounds, const Brush& brush) {
    for (const Vertex& v : brush.vertices) {
        bounds.min = {std::min(bounds.min.x, v.x), std::min(bounds.min.y, v.y),
                      std::min(bounds.min.z, v.z)};
        bounds.max = {std::max(bounds.max.x, v.x), std::max(bounds.max.y, v.y),
                      std::max(bounds.max.z, v.z)};
    }
}

}  // namespace

Vec3 FaceNormal(const Vec3& a, const Vec3& b, const Vec3& c) {
    return UnitNormal(a, b, c);
}

void UpdateBrushNormals(Brush& brush) {
    for (BrushFace& face : brush.faces) {
        face.normal = UnitNormal(PositionOf(brush, face.a), PositionOf(brush, face.b),
                                 PositionOf(brush, face.c));
        face.cornerNormals.fill(face.normal);
    }
    thread_local Smoother smoother;
    smoother.Run(brush);
    Touch(brush);
}

void UpdateSelectedNormals(Scene& scene) {
    for (Brush& brush : scene.brushes) {
        if (brush.selected) UpdateBrushNormals(brush);
    }
}

Bounds BrushBounds(const Brush& brush) {
    Bounds bounds;
    Extend(bounds, brush);
    return bounds;
}

Bounds SelectionBounds(const Scene& scene) {
    Bounds bounds;
    for (const Brush& brush : scene.brushes) {
        if (brush.selected) Extend(bounds, brush);
    }
    return bounds;
}

}  // namespace korvane
