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
#include <span>

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

inline Vec3 UnitNormal(const Vec3& a, const Vec3& b, const Vec3& c) {
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

/// A side as the averages need it.
struct Side {
    Vec3 normal;
    bool addsExactly;
    std::uint32_t face;
    std::array<std::uint32_t, 3> vertices;
};

/// The distinct normals at one vertex in the order of their first appearance, hashed.
class DistinctNormals {
  public:
    /// Empties the list and makes room for up to `limit` normals.
    void Reset(std::size_t limit) {
        normals_.clear();
        slots_.assign(std::bit_ceil(2 * limit), kFree);
        exact_ = true;
    }

    /// Index of the side's normal in the list, adding it where it is new. -0 equals +0.
    std::uint32_t IndexOf(const Side& side) {
        std::uint32_t& slot = SlotOf(side.normal);
        if (slot == kFree) {
            slot = static_cast<std::uint32_t>(normals_.size());
            normals_.push_back(side.normal);
            exact_ = exact_ && side.addsExactly;
        }
        return slot;
    }

    /// The average that a face sees whose own normal is the given entry.
    Vec3 AverageFrom(std::uint32_t own) const {
        Sum sum;
        sum.Add(normals_[own]);
        for (std::uint32_t i = 0; i < normals_.size(); ++i) {
            if (i != own) sum.Add(normals_[i]);
        }
        return sum.Average(normals_.size());
    }

    /// Whether all faces see the same average, whatever the order of summation.
    bool Exact() const { return exact_ && normals_.size() <= kMaxExact; }

  private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFFU;

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
        while (slots_[s] != kFree && !(normals_[slots_[s]] == n)) s = (s + 1) & mask;
        return slots_[s];
    }

    std::vector<Vec3> normals_;
    std::vector<std::uint32_t> slots_;  // indices into normals_
    bool exact_ = true;
};

/// Computes the normals of a brush. The lists live on from brush to brush, so that a recomputation
/// allocates nothing.
class NormalUpdate {
  public:
    void Run(Brush& brush) {
        ComputeFaceNormals(brush);
        ListSidesOfVertices();
        AverageVertices();
        StoreAverages(brush);
        for (const std::uint32_t v : careful_) StoreOwnAverages(brush, v);
    }

  private:
    using SideIndices = std::span<const std::uint32_t>;

    void ComputeFaceNormals(Brush& brush) {
        sides_.clear();
        ends_.assign(brush.vertices.size() + 1, 0);
        std::uint32_t f = 0;
        for (BrushFace& face : brush.faces) {
            const std::array<std::uint32_t, 3> v{Index(face.a), Index(face.b), Index(face.c)};
            face.normal =
                UnitNormal(brush.vertices[v[0]].Position(), brush.vertices[v[1]].Position(),
                           brush.vertices[v[2]].Position());
            if (face.polygonId > kLastCapId) {
                sides_.push_back({face.normal, AddsExactly(face.normal), f, v});
                for (const std::uint32_t vertex : v) ++ends_[vertex + 1];
            } else {
                face.cornerNormals.fill(face.normal);
            }
            ++f;
        }
    }

    /// Sorts the sides by vertex: those of vertex v, in face order, stand in sidesOf_ from
    /// ends_[v - 1] (0 for the first) to ends_[v].
    void ListSidesOfVertices() {
        for (std::size_t v = 1; v < ends_.size(); ++v) ends_[v] += ends_[v - 1];
        sidesOf_.resize(3 * sides_.size());
        for (std::uint32_t s = 0; s < sides_.size(); ++s) {
            for (const std::uint32_t vertex : sides_[s].vertices) sidesOf_[ends_[vertex]++] = s;
        }
    }

    SideIndices SidesOf(std::size_t v) const {
        const std::uint32_t first = v == 0 ? 0 : ends_[v - 1];
        return {sidesOf_.data() + first, ends_[v] - first};
    }

    void AverageVertices() {
        const std::size_t count = ends_.size() - 1;
        if (averages_.size() < count) averages_.resize(count);
        careful_.clear();
        for (std::uint32_t v = 0; v < count; ++v) {
            const SideIndices sides = SidesOf(v);
            if (!sides.empty() && !AverageShort(sides, averages_[v])) careful_.push_back(v);
        }
    }

    /// The one average that all sides of a vertex see; false where they are too many to search or
    /// their sum depends on the order.
    bool AverageShort(SideIndices sides, Vec3& average) const {
        std::array<const Vec3*, 12> known;
        std::size_t count = 0;
        Sum sum;
        for (const std::uint32_t s : sides) {
            const Side& side = sides_[s];
            std::size_t i = 0;
            while (i < count && !(*known[i] == side.normal)) ++i;
            if (i < count) continue;
            if (count == known.size() || !side.addsExactly) return false;
            known[count++] = &side.normal;
            sum.Add(side.normal);
        }
        average = sum.Average(count);
        return true;
    }

    void StoreAverages(Brush& brush) const {
        for (const Side& side : sides_) {
            std::array<Vec3, 3>& corners = brush.faces[side.face].cornerNormals;
            for (std::size_t i = 0; i < 3; ++i) corners[i] = averages_[side.vertices[i]];
        }
    }

    /// Gives every side the average that starts with its own normal.
    void StoreOwnAverages(Brush& brush, std::uint32_t v) {
        const SideIndices sides = SidesOf(v);
        distinct_.Reset(sides.size());
        entries_.clear();
        for (const std::uint32_t s : sides) entries_.push_back(distinct_.IndexOf(sides_[s]));
        const Vec3 shared = distinct_.AverageFrom(0);
        for (std::size_t i = 0; i < sides.size(); ++i) {
            const Side& side = sides_[sides[i]];
            const Vec3 average = distinct_.Exact() ? shared : distinct_.AverageFrom(entries_[i]);
            for (std::size_t c = 0; c < 3; ++c) {
                if (side.vertices[c] == v) brush.faces[side.face].cornerNormals[c] = average;
            }
        }
    }

    static std::uint32_t Index(std::int32_t v) { return static_cast<std::uint32_t>(v); }

    std::vector<Side> sides_;
    std::vector<std::uint32_t> ends_;
    std::vector<std::uint32_t> sidesOf_;
    std::vector<Vec3> averages_;          // per vertex; stale where no side meets it
    std::vector<std::uint32_t> careful_;  // vertices left to StoreOwnAverages
    std::vector<std::uint32_t> entries_;
    DistinctNormals distinct_;
};

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
    thread_local NormalUpdate update;
    update.Run(brush);
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
