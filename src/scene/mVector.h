// Vectors and 4x4 matrices of the scene: 32-bit floats, arithmetic in between in 64-bit floats.
#pragma once

#include <array>

namespace korvane {

/// A point or direction in world units, Y up.
struct Vec3 {
    float x = 0;
    float y = 0;
    float z = 0;

    friend bool operator==(const Vec3&, const Vec3&) = default;
};

/// A 4x4 matrix of 32-bit floats, row-major: element [r][c] at 4r + c, applied to column vectors.
using Matrix4 = std::array<float, 16>;

/// The written constant: rings decide their rounding ties by it.
inline constexpr double kPi = 3.14159265358979;

/// Degrees to radians.
double DegToRad(double degrees);

/// b - a per component: the second minus the first.
Vec3 Difference(const Vec3& a, const Vec3& b);

/// The point halfway from a to b, as (b - a) * 0.5 + a.
Vec3 Midpoint(const Vec3& a, const Vec3& b);

/// Per-component absolute value.
Vec3 Absolute(const Vec3& a);

/// Euclidean distance of two points.
double Distance(const Vec3& a, const Vec3& b);

/// The identity.
Matrix4 MatrixIdentity();
/// Rotation about X by t radians: turns +Y towards +Z.
Matrix4 MatrixRotateX(double t);
/// Rotation about Y by t radians: turns +Z towards +X.
Matrix4 MatrixRotateY(double t);
/// Rotation about Z by t radians: turns +X towards +Y.
Matrix4 MatrixRotateZ(double t);
/// Identity with the translation in its fourth column.
Matrix4 MatrixTranslate(double tx, double ty, double tz);
/// The product A B.
Matrix4 MatrixMultiply(const Matrix4& a, const Matrix4& b);
/// M applied to (p, 1).
Vec3 TransformPoint(const Matrix4& m, const Vec3& p);

}  // namespace korvane
