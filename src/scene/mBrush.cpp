// Construction of boxes, cones and spheres.
#include "scene/mBrush.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Rounding.h"
#include "scene/mMerge.h"
#include "scene/mNormals.h"

namespace korvane {
namespace {

constexpr double kTwoPi = 2 * kPi;
constexpr std::int32_t kTopCapId = 1;
constexpr std::int32_t kBottomCapId = 2;
constexpr std::int32_t kFirstSideId = 3;

struct RingPoint {
    double x, z;
};

/// A corner of a fixed outline, as fractions of the drawn rectangle.
constexpr RingPoint kOutline3[] = {{0, 0}, {0, 1}, {1, 1}};
constexpr RingPoint kOutline4[] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
constexpr RingPoint kOutline5[] = {{0.5, 0}, {0, 0.5}, {0.25, 1}, {0.75, 1}, {1, 0.5}};
constexpr RingPoint kOutline6[] = {{0.3, 0}, {0, 0.5}, {0.3, 1}, {0.7, 1}, {1, 0.5}, {0.7, 0}};

/// One side of the rectangle that a ring is drawn in.
struct Extent {
    double start, end;

    double Length() const { return end - start; }
    /// The edges are met exactly, whatever the length was rounded to.
    double At(double fraction) const {
        if (fraction == 0) return start;
        return fraction == 1 ? end : start + fraction * Length();
    }
};

struct Rectangle {
    Extent x, z;

    Rectangle(const Vec3& p1, const Vec3& p2) : x{p1.x, p2.x}, z{p1.z, p2.z} {}
};

void AddRingVertex(Brush& brush, double x, double y, double z) {
    AddVertex(brush, {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)}, false);
}

template <std::size_t N>
void AddOutline(Brush& brush, const Rectangle& r, double y, const RingPoint (&outline)[N]) {
    for (const RingPoint& f : outline) AddRingVertex(brush, r.x.At(f.x), y, r.z.At(f.z));
}

/// The inscribed ellipse from the 45-degree point on, clockwise in angle. The angle is stepped, not
/// multiplied, and its noise is kept: together they decide the ties of the rounding.
void AddEllipse(Brush& brush, const Rectangle& r, double y, std::int32_t sides) {
    const double rx = 0.5 * r.x.Length();
    const double rz = 0.5 * r.z.Length();
    double angle = 45;
    for (std::int32_t k = 0; k < sides; ++k) {
        const double t = DegToRad(angle);
        AddRingVertex(brush, Round(r.x.start + rx + rx * std::cos(t), 2), y,
                      Round(r.z.start + rz + rz * std::sin(t), 2));
        angle -= 360.0 / sides;
        if (angle < 0) angle += 360;
    }
}

void AddRing(Brush& brush, const Vec3& p1, const Vec3& p2, double y, std::int32_t sides) {
    const Rectangle r(p1, p2);
    switch (sides) {
        case 3:
            return AddOutline(brush, r, y, kOutline3);
        case 4:
            return AddOutline(brush, r, y, kOutline4);
        case 5:
            return AddOutline(brush, r, y, kOutline5);
        case 6:
            return AddOutline(brush, r, y, kOutline6);
        default:
            return AddEllipse(brush, r, y, sides);
    }
}

void TurnFacesOver(Brush& brush) {
    for (BrushFace& face : brush.faces) std::swap(face.a, face.c);
}

/// Faces and rings are counted ahead: growing a list of faces copies them.
void Reserve(Brush& brush, std::size_t vertices, std::size_t faces) {
    brush.vertices.reserve(vertices);
    brush.faces.reserve(faces);
}

/// The ring that the brush consists of so far once more, at another height.
void AddRingBelow(Brush& brush, float y) {
    for (std::size_t i = 0, sides = brush.vertices.size(); i < sides; ++i) {
        AddVertex(brush, {brush.vertices[i].x, y, brush.vertices[i].z}, false);
    }
}

void AddBottomCap(Brush& brush, std::int32_t sides) {
    for (std::size_t i = brush.faces.size(); i-- > 0;) {
        const BrushFace top = brush.faces[i];
        AddFace(brush, top.c + sides, top.b + sides, top.a + sides, kBottomCapId);
    }
}

void BuildBox(Brush& brush, const Vec3& p1, const Vec3& p2, std::int32_t sides) {
    const auto n = static_cast<std::size_t>(sides);
    Reserve(brush, 2 * n, 4 * n - 4);
    AddRing(brush, p1, p2, std::max(p1.y, p2.y), sides);
    AddRingBelow(brush, std::min(p1.y, p2.y));
    TriangulateCap(brush, kTopCapId);
    AddBottomCap(brush, sides);
    for (std::int32_t i = 0; i < sides; ++i) {
        const std::int32_t j = (i + 1) % sides;
        AddFace(brush, i, i + sides, j + sides, kFirstSideId + i);
        AddFace(brush, j + sides, j, i, kFirstSideId + i);
    }
}

void BuildCone(Brush& brush, const Vec3& p1, const Vec3& p2, std::int32_t sides) {
    const auto n = static_cast<std::size_t>(sides);
    Reserve(brush, n + 1, 2 * n - 2);
    AddRing(brush, p1, p2, std::min(p1.y, p2.y), sides);
    TriangulateCap(brush, kBottomCapId);
    TurnFacesOver(brush);
    Vec3 apex = Midpoint(p1, p2);
    apex.y = std::max(p1.y, p2.y);
    AddVertex(brush, apex, false);
    for (std::int32_t i = 0; i < sides; ++i) {
        AddFace(brush, i, (i + 1) % sides, sides, kFirstSideId + i);
    }
}

/// Cosine and sine with their noise taken away, so that a sphere closes at its seam and poles
/// wherever its centre lies.
struct CosSin {
    double cos, sin;

    explicit CosSin(double t) : cos(WithoutNoise(std::cos(t))), sin(WithoutNoise(std::sin(t))) {}

    static double WithoutNoise(double x) { return std::fabs(x) < 1e-12 ? 0 : x; }
};

std::vector<CosSin> Longitudes(std::int32_t sides) {
    std::vector<CosSin> longitudes;
    for (std::int32_t j = 0; j <= sides; ++j) longitudes.emplace_back(kTwoPi - j * kTwoPi / sides);
    return longitudes;
}

/// The point list of one band between two latitudes: upper and lower points in turn.
std::vector<Vec3> BandPoints(const Vec3& centre, double radius, const CosSin& lower,
                             const CosSin& upper, const std::vector<CosSin>& longitudes) {
    std::vector<Vec3> points;
    points.reserve(2 * longitudes.size());
    for (const CosSin& lon : longitudes) {
        for (const CosSin& lat : {upper, lower}) {
            points.push_back({static_cast<float>(centre.x + radius * (lat.cos * lon.cos)),
                              static_cast<float>(centre.y + radius * lat.sin),
                              static_cast<float>(centre.z + radius * (lat.cos * lon.sin))});
        }
    }
    return points;
}

void AddTriangle(Brush& brush, const Vec3& a, const Vec3& b, const Vec3& c, std::int32_t id) {
    const std::int32_t first = AddVertex(brush, a, false);
    AddVertex(brush, b, false);
    AddVertex(brush, c, false);
    AddFace(brush, first, first + 1, first + 2, id);
}

void BuildSphere(Brush& brush, const Vec3& centre, double radius, std::int32_t sides) {
    const auto n = static_cast<std::size_t>(sides);
    Reserve(brush, 6 * n * n, 2 * n * n);
    const std::vector<CosSin> longitudes = Longitudes(sides);
    const auto latitude = [&](std::int32_t i) {
        return CosSin(i * kTwoPi / (2 * sides) - kPi / 2);
    };
    for (std::int32_t band = 0; band < sides; ++band) {
        const std::vector<Vec3> points =
            BandPoints(centre, radius, latitude(band), latitude(band + 1), longitudes);
        const std::int32_t base = band * (2 * sides + 2);
        for (std::size_t k = 0; k < 2 * n; k += 2) {
            const std::int32_t id = base + static_cast<std::int32_t>(k) + 2;
            AddTriangle(brush, points[k], points[k + 1], points[k + 2], id);
            AddTriangle(brush, points[k + 3], points[k + 2], points[k + 1], id);
        }
    }
    MergeEqualVertices(brush);
}

}  // namespace

void TriangulateCap(Brush& brush, std::int32_t polygonId) {
    struct Pass {
        std::int32_t stride, limit, threshold;
    };
    constexpr Pass kPasses[] = {{1, 5, 2}, {2, 9, 5}, {4, 17, 9}, {8, 33, 17}, {16, 65, 33}};
    const auto count = static_cast<std::int32_t>(brush.vertices.size());
    const std::int32_t n = brush.shape == Box ? count / 2 : count;
    for (const auto& [stride, limit, threshold] : kPasses) {
        if (n <= threshold) break;
        std::int32_t c = 0;
        for (std::int32_t i = 0; i <= n - 1; i += 2 * stride) {
            const std::int32_t a = c;
            std::int32_t b = a + stride;
            const bool wrapped = b >= n;
            if (wrapped && n != limit) break;
            if (wrapped) b = 0;
            c = b + (wrapped ? 2 : 1) * stride;
            if (c >= n) c = 0;
            AddFace(brush, a, b, c, polygonId);
        }
    }
}

std::int32_t CreateBrush(Scene& scene, const Vec3& p1, const Vec3& p2, std::int32_t sides,
                         const TextureSpace& space) {
    const double radius = std::fabs(double{p2.x} - p1.x) / 2;
    const std::int16_t shape = scene.createShape;
    if (sides < kMinSides || sides > kMaxSides || shape < Box || shape > Sphere) return -1;
    if (shape == Sphere && !(radius > 0)) return -1;

    const std::int32_t index = AddBrush(scene, {}, {});
    Brush& brush = scene.brushes.back();
    brush.shape = shape;
    if (shape == Box) BuildBox(brush, p1, p2, sides);
    if (shape == Cone) BuildCone(brush, p1, p2, sides);
    if (shape == Sphere) BuildSphere(brush, Midpoint(p1, p2), radius, sides);

    UpdateBrushNormals(brush);
    AssignTextureToBrush(brush, space.library);
    UpdateTextureCoords(brush, space);
    return index;
}

}  // namespace korvane
