#include "interchange/MeshParts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "base/Rounding.h"

namespace korvane {
namespace {

constexpr std::size_t kLongestName = 255;  // bytes

/// The vector with a length of 1; nothing where that has no meaning.
std::optional<Vec3> Unit(double x, double y, double z) {
    const double length = std::hypot(x, y, z);
    if (!(length > 0) || !std::isfinite(length)) return std::nullopt;
    return Vec3{static_cast<float>(x / length), static_cast<float>(y / length),
                static_cast<float>(z / length)};
}

/// As the face normal of the scene, of the positions that are written.
std::optional<Vec3> NormalOf(const std::array<Vec3, 3>& p) {
    const double ax = double{p[0].x} - p[2].x, bx = double{p[1].x} - p[2].x;
    const double ay = double{p[0].y} - p[2].y, by = double{p[1].y} - p[2].y;
    const double az = double{p[0].z} - p[2].z, bz = double{p[1].z} - p[2].z;
    return Unit(ay * bz - az * by, az * bx - ax * bz, ax * by - ay * bx);
}

void AddFace(std::vector<MeshCorner>& corners, const ExportFace& exported) {
    const BrushFace& face = *exported.face;
    std::array<Vec3, 3> positions = exported.Corners();
    for (Vec3& p : positions) p = {Finite(p.x), Finite(p.y), Finite(p.z)};
    const auto flat = NormalOf(positions);
    if (!flat) return;
    for (std::size_t i = 0; i < 3; ++i) {
        const Vec3& n = face.cornerNormals[i];
        corners.push_back({positions[i],
                           face.smooth == 1 ? Unit(n.x, n.y, n.z).value_or(*flat) : *flat,
                           {Finite(face.uv[i].u), Finite(face.uv[i].v)}});
    }
}

}  // namespace

std::string MeshName(const std::string& text) {
    constexpr std::string_view kUnfit = " \"#\\/\x7F";
    std::string name = text;
    for (char& c : name) {
        const bool control = static_cast<unsigned char>(c) < ' ';
        if (control || kUnfit.find(c) != std::string_view::npos) c = '_';
    }
    // Not within a character of several bytes.
    std::size_t length = std::min(name.size(), kLongestName);
    while (length > 0 && length < name.size() && (name[length] & 0xC0) == 0x80) --length;
    name.resize(length);
    return name;
}

std::vector<MeshPart> PartsOf(std::span<const ExportMaterial> materials) {
    std::map<std::pair<std::string, std::size_t>, std::vector<MeshCorner>> found;
    for (std::size_t i = 0; i < materials.size(); ++i) {
        const Brush* last = nullptr;
        std::vector<MeshCorner>* corners = nullptr;
        for (const ExportFace& face : materials[i].faces) {
            if (std::exchange(last, face.brush) != face.brush)
                corners = &found[{face.brush->group, i}];
            AddFace(*corners, face);
        }
    }
    std::vector<MeshPart> parts;
    for (auto& [key, corners] : found) {
        if (!corners.empty()) parts.push_back({key.first, key.second, std::move(corners)});
    }
    return parts;
}

}  // namespace korvane
