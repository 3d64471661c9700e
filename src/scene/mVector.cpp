// Vectors and matrices. Every sum and product is taken in 64-bit floats and rounded once, when it
// is stored.
#include "scene/mVector.h"

#include <cmath>

namespace korvane {
namespace {

Vec3 Stored(double x, double y, double z) {
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
}

}  // namespace

double DegToRad(double degrees) {
    return degrees * kPi / 180;
}

Vec3 Difference(const Vec3& a, const Vec3& b) {
    return Stored(double{b.x} - a.x, double{b.y} - a.y, double{b.z} - a.z);
}

Vec3 Midpoint(const Vec3& a, const Vec3& b) {
    return Stored((double{b.x} - a.x) * 0.5 + a.x, (double{b.y} - a.y) * 0.5 + a.y,
                  (double{b.z} - a.z) * 0.5 + a.z);
}

Vec3 Absolute(const Vec3& a) {
    return {std::fabs(a.x), std::fabs(a.y), std::fabs(a.z)};
}

double Distance(const Vec3& a, const Vec3& b) {
    const double x = double{b.x} - a.x;
    const double y = double{b.y} - a.y;
    const double z = double{b.z} - a.z;
    return std::sqrt(x * x + y * y + z * z);
}

Matrix4 MatrixIdentity() {
    return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
}

Matrix4 MatrixRotateX(double t) {
    const auto c = static_cast<float>(std::cos(t));
    const auto s = static_cast<float>(std::sin(t));
    return {1, 0, 0, 0, 0, c, -s, 0, 0, s, c, 0, 0, 0, 0, 1};
}

Matrix4 MatrixRotateY(double t) {
    const auto c = static_cast<float>(std::cos(t));
    const auto s = static_cast<float>(std::sin(t));
    return {c, 0, s, 0, 0, 1, 0, 0, -s, 0, c, 0, 0, 0, 0, 1};
}

Matrix4 MatrixRotateZ(double t) {
    const auto c = static_cast<float>(std::cos(t));
    const auto s = static_cast<float>(std::sin(t));
    return {c, -s, 0, 0, s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
}

Matrix4 MatrixTranslate(double tx, double ty, double tz) {
    Matrix4 m = MatrixIdentity();
    m[3] = static_cast<float>(tx);
    m[7] = static_cast<float>(ty);
    m[11] = static_cast<float>(tz);
    return m;
}

Matrix4 MatrixMultiply(const Matrix4& a, const Matrix4& b) {
    Matrix4 product{};
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t c = 0; c < 4; ++c) {
            double sum = 0;
            for (std::size_t k = 0; k < 4; ++k) sum += double{a[4 * r + k]} * b[4 * k + c];
            product[4 * r + c] = static_cast<float>(sum);
        }
    }
    return product;
}

Vec3 TransformPoint(const Matrix4& m, const Vec3& p) {
    const auto row = [&](std::size_t r) {
        return double{m[r]} * p.x + double{m[r + 1]} * p.y + double{m[r + 2]} * p.z + m[r + 3];
    };
    return Stored(row(0), row(4), row(8));
}

}  // namespace korvane
