// Face normals, shading normals and bounds.
//
// A shading normal is the average of the distinct normals of the sides that meet a vertex, summed
// in a fixed order: the face's own normal first, then the others in face order. The order decides
// the last bits of a sum only where the sum is rounded, and that is rare: nearly always all partial
// sums are exact, and one list of distinct normals per vertex, with one average, serves all faces
// there. Where a sum may be rounded, or a vertex meets too many sides to search their list (apexes,
// poles), the vertex is done again with a hashed list, each face putting its own entry in front. A
// sum for every face takes quadratic time, so beyond a number of normals that no brush built here
// comes near, all faces there share the sum in face order: it differs by rounding only.
#include "scene/mNormals.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <limits>
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

// More distinct normals than this at one vertex share one sum. A pole of 64 sides has 65.
constexpr std::size_t kMostOrdered = 500;

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
    std::array<std::uint32_t, 3> lists;  // of the vertices of its corners
};

/// The distinct normals at one vertex, as long as they are few and their order does not matter.
class ShortList {
  public:
    void Clear() {
        count_ = 0;
        complete_ = true;
    }

    void Add(const Side& side) {
        if (!complete_) return;
        for (std::uint32_t i = 0; i < count_; ++i) {
            if (normals_[i] == side.normal) return;
        }
        if (count_ == normals_.size() || !side.addsExactly) {
            complete_ = false;
        } else {
            normals_[count_++] = side.normal;
        }
    }

    void TakeAverage() {
        Sum sum;
        for (std::uint32_t i = 0; i < count_; ++i) sum.Add(normals_[i]);
        average_ = sum.Average(count_);
    }

    const Vec3& Average() const { return average_; }

    /// False where a normal had to be left out: the average is not that of all.
    bool Complete() const { return complete_; }

  private:
    std::array<Vec3, 8> normals_;  // a vertex of a sphere meets six sides
    std::uint32_t count_ = 0;
    bool complete_ = true;
    Vec3 average_;
};

/// The distinct normals at any vertex in the order of their first appearance, hashed.
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

    /// Whether all faces take the same average: the order of summation does not matter, or a sum
    /// for each face would take too long.
    bool Shared() const {
        return (exact_ && normals_.size() <= kMaxExact) || normals_.size() > kMostOrdered;
    }

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
/// allocates nothing; those of a giant, which may need several times the memory of its file, do
/// not.
class NormalUpdate {
  public:
    void Run(Brush& brush) {
        const bool giant = std::max(brush.vertices.size(), brush.faces.size()) > kMostKept;
        if (giant) MakeRoom(brush);
        ComputeFaceNormals(brush);
        for (std::uint32_t i = 0; i < listCount_; ++i) lists_[i].TakeAverage();
        StoreAverages(brush);
        StoreOwnAverages(brush);
        if (giant) *this = {};
    }

  private:
    static constexpr std::size_t kMostKept = 1 << 15;  // a sphere of 64 sides has 24576 vertices

    /// Growing step by step would take up to three times the memory of what is needed in the end.
    void MakeRoom(const Brush& brush) {
        lists_.clear();  // nothing in it needs to move
        lists_.reserve(std::min(brush.vertices.size(), 3 * brush.faces.size()));
        sides_.reserve(brush.faces.size());
    }

    /// A side at a vertex whose list is not complete.
    struct Meeting {
        std::uint32_t list;
        std::uint32_t side;

        friend auto operator<=>(const Meeting&, const Meeting&) = default;
    };

    void ComputeFaceNormals(Brush& brush) {
        sides_.clear();
        listOf_.assign(brush.vertices.size(), kNoList);
        listCount_ = 0;
        std::uint32_t f = 0;
        for (BrushFace& face : brush.faces) {
            const Vec3 normal = UnitNormal(PositionOf(brush, face.a), PositionOf(brush, face.b),
                                           PositionOf(brush, face.c));
            face.normal = normal;
            if (face.polygonId > kLastCapId) {
                AddSide({normal,
                         AddsExactly(normal),
                         f,
                         {ListOf(face.a), ListOf(face.b), ListOf(face.c)}});
            } else {
                face.cornerNormals.fill(normal);
            }
            ++f;
        }
    }

    static Vec3 PositionOf(const Brush& brush, std::int32_t vertex) {
        return brush.vertices[static_cast<std::size_t>(vertex)].Position();
    }

    /// The list of a vertex; merged vertices that no side meets get none.
    std::uint32_t ListOf(std::int32_t vertex) {
        std::uint32_t& list = listOf_[static_cast<std::size_t>(vertex)];
        if (list == kNoList) {
            list = listCount_++;
            if (lists_.size() < listCount_) lists_.emplace_back();
            lists_[list].Clear();
        }
        return list;
    }

    void AddSide(const Side& side) {
        sides_.push_back(side);
        for (const std::uint32_t list : side.lists) lists_[list].Add(side);
    }

    void StoreAverages(Brush& brush) {
        meetings_.clear();
        for (std::uint32_t s = 0; s < sides_.size(); ++s) {
            const Side& side = sides_[s];
            std::array<Vec3, 3>& corners = brush.faces[side.face].cornerNormals;
            for (std::size_t i = 0; i < 3; ++i) {
                const ShortList& list = lists_[side.lists[i]];
                corners[i] = list.Average();
                if (!list.Complete()) meetings_.push_back({side.lists[i], s});
            }
        }
    }

    /// Where a short list was not enough, vertex by vertex.
    void StoreOwnAverages(Brush& brush) {
        // One apex, or the two poles one after the other, are in order already.
        if (!std::is_sorted(meetings_.begin(), meetings_.end())) {
            std::sort(meetings_.begin(), meetings_.end());
        }
        for (auto first = meetings_.begin(); first != meetings_.end();) {
            const auto end = std::find_if(first, meetings_.end(),
                                          [&](const Meeting& m) { return m.list != first->list; });
            StoreOwnAverages(brush, {first, end});
            first = end;
        }
    }

    /// Gives every side at one vertex the average that starts with its own normal.
    void StoreOwnAverages(Brush& brush, std::span<const Meeting> meetings) {
        distinct_.Reset(meetings.size());
        entries_.clear();
        for (const Meeting& m : meetings) entries_.push_back(distinct_.IndexOf(sides_[m.side]));
        const Vec3 shared = distinct_.AverageFrom(0);
        for (std::size_t i = 0; i < meetings.size(); ++i) {
            const Side& side = sides_[meetings[i].side];
            const Vec3 average = distinct_.Shared() ? shared : distinct_.AverageFrom(entries_[i]);
            for (std::size_t c = 0; c < 3; ++c) {
                if (side.lists[c] != meetings[i].list) continue;
                brush.faces[side.face].cornerNormals[c] = average;
            }
        }
    }

    static constexpr std::uint32_t kNoList = 0xFFFFFFFFU;

    std::vector<Side> sides_;
    std::vector<std::uint32_t> listOf_;  // per vertex
    std::vector<ShortList> lists_;       // listCount_ of them are in use
    std::uint32_t listCount_ = 0;
    std::vector<Meeting> meetings_;
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

Bounds SceneBounds(const Scene& scene) {
    constexpr float kFar = std::numeric_limits<float>::infinity();
    Bounds bounds{{kFar, kFar, kFar}, {-kFar, -kFar, -kFar}};
    for (const Brush& brush : scene.brushes) Extend(bounds, brush);
    for (float Vec3::*axis : {&Vec3::x, &Vec3::y, &Vec3::z}) {
        if (bounds.min.*axis > bounds.max.*axis) bounds.min.*axis = bounds.max.*axis = 0;
    }
    return bounds;
}

}  // namespace korvane
