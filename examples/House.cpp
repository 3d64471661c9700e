// A small house with a garden: bricks and plaster, tiled roofs, a pond, trees and a fence.
#include "base/Rounding.h"
#include "examples/SampleKit.h"

namespace korvane {
namespace {

constexpr double kGround = 0.05;  // just above the preview's grid
constexpr double kEaves = 1.05;
constexpr double kRidge = 1.75;

Vec3 At(double x, double y, double z) {
    return {float(x), float(y), float(z)};
}

void Garden(SampleKit& kit) {
    kit.Group("Garden");
    kit.Texture("Grass.jpg", 1.3);
    kit.Block(At(-3.4, -0.1, -4), At(3.4, kGround, 2.2));
    kit.Texture("Cobble.jpeg", 0.6);
    kit.Block(At(0.05, 0, -1.1), At(0.6, kGround + 0.02, 2.2));
    kit.Texture("Hedge.gif", 1.0);
    kit.Block(At(-3.3, kGround, -3.8), At(-3.1, 0.45, 0.9));
    kit.Block(At(3.1, kGround, -3.8), At(3.3, 0.45, 0.9));
    kit.Block(At(-3.1, kGround, -3.8), At(3.1, 0.45, -3.6));
}

void Pond(SampleKit& kit) {
    constexpr double kX = -1.6, kZ = 0.05, kRadius = 0.55;
    kit.Group("Pond");
    kit.Texture("Water.jpg", 0.8);
    kit.Drum(kX, kZ, kRadius, 0, kGround + 0.02, 24);
    kit.Texture("Stone.jpg", 0.4);
    constexpr int kStones = 18;
    for (int i = 0; i < kStones; ++i) {
        const double height = i % 3 == 0 ? 0.15 : 0.12;
        Brush& stone = kit.Block(At(kX - 0.09, 0, kZ + kRadius - 0.05),
                                 At(kX + 0.09, height, kZ + kRadius + 0.09));
        kit.Turn(stone, i * 360.0 / kStones, kX, kZ);
    }
}

void FirTree(SampleKit& kit, double x, double z, double height) {
    kit.Group("Fir tree");
    kit.Texture("Planks.jpg", 0.3);
    SampleKit::Smooth(kit.Drum(x, z, 0.07, kGround, height * 0.3, 8));
    kit.Texture("Hedge.gif", 0.8);
    for (int i = 0; i < 3; ++i) {
        SampleKit::Smooth(kit.Spire(x, z, height * (0.32 - 0.07 * i), height * (0.18 + 0.22 * i),
                                    height * (0.62 + 0.19 * i), 10));
    }
}

void RoundTree(SampleKit& kit, double x, double z) {
    kit.Group("Round tree");
    kit.Texture("Planks.jpg", 0.3);
    Brush& trunk = kit.Drum(x, z, 0.08, kGround, 0.6, 8);
    kit.Taper(trunk, 0.7);
    SampleKit::Smooth(trunk);
    kit.Texture("Hedge.gif", 0.8);
    SampleKit::Smooth(kit.Ball(At(x, 0.85, z), 0.38, 10));
    SampleKit::Smooth(kit.Ball(At(x + 0.22, 0.72, z + 0.1), 0.24, 8));
    SampleKit::Smooth(kit.Ball(At(x - 0.2, 0.7, z + 0.12), 0.22, 8));
}

void FencePart(SampleKit& kit, double from, double to, double z) {
    for (const double y : {0.14, 0.28}) {
        kit.Block(At(from, y, z - 0.015), At(to, y + 0.035, z + 0.015));
    }
    const int pickets = RoundToInt((to - from) / 0.16);
    for (int i = 0; i <= pickets; ++i) {
        const double x = from + (to - from) * i / pickets;
        const bool post = i == 0 || i == pickets;
        const double half = post ? 0.04 : 0.028, top = post ? 0.46 : 0.38;
        kit.Block(At(x - half, kGround, z + 0.015), At(x + half, top, z + 0.05));
    }
}

void Fence(SampleKit& kit) {
    kit.Group("Fence");
    kit.Texture("Plaster.bmp", 0.6);
    FencePart(kit, -3.1, -0.05, 1.0);
    FencePart(kit, 0.7, 3.1, 1.0);
}

/// A triangular prism under a roof: its corners stand upright instead of lying in the ground plane.
void Gable(SampleKit& kit, double low, double high, double from, double to, bool ridgeAlongX) {
    Brush& gable = kit.Block(At(low, kEaves, from), At(high, kRidge, to));
    const double middle = (low + high) / 2;
    kit.Reshape(gable, [&](const Vec3& p) {
        const double across = p.y > kEaves ? middle + (p.x < middle ? -0.01 : 0.01) : p.x;
        return ridgeAlongX ? At(p.z, p.y, -across) : At(across, p.y, p.z);
    });
}

double Slope(double wall, double ridge) {
    return (kRidge - kEaves) / (ridge - wall);
}

/// A sloping slab from beyond the wall at `wall` up to the ridge, along Z.
void RoofAlongZ(SampleKit& kit, double wall, double ridge, double from, double to) {
    const double slope = Slope(wall, ridge);
    const bool left = wall < ridge;
    const double eave = wall + (left ? -0.2 : 0.2);
    Brush& roof = kit.Block(At(left ? eave : ridge, 0, from), At(left ? ridge : eave, 0.09, to));
    kit.Reshape(roof,
                [&](const Vec3& p) { return At(p.x, kEaves + (p.x - wall) * slope + p.y, p.z); });
    kit.TurnTexture(roof, left ? 90 : 270);
}

/// The same along X.
void RoofAlongX(SampleKit& kit, double wall, double ridge, double from, double to) {
    const double slope = Slope(wall, ridge);
    const bool back = wall < ridge;
    const double eave = wall + (back ? -0.2 : 0.2);
    Brush& roof = kit.Block(At(from, 0, back ? eave : ridge), At(to, 0.09, back ? ridge : eave));
    kit.Reshape(roof,
                [&](const Vec3& p) { return At(p.x, kEaves + (p.z - wall) * slope + p.y, p.z); });
    kit.TurnTexture(roof, back ? 180 : 0);
}

void Window(SampleKit& kit, double x, double y, double z, double width, double height) {
    kit.Texture("Window.tga", 0);
    kit.Block(At(x, y, z), At(x + width, y + height, z + 0.03));
    kit.Texture("Planks.jpg", 0.5);
    kit.Block(At(x - 0.05, y - 0.05, z), At(x + width + 0.05, y, z + 0.09));
}

void FlowerBox(SampleKit& kit, double x, double y, double z, double width) {
    kit.Texture("Planks.jpg", 0.4);
    kit.Block(At(x, y, z), At(x + width, y + 0.08, z + 0.12));
    kit.Texture("Hedge.gif", 0.6);
    kit.Block(At(x + 0.02, y + 0.08, z + 0.02), At(x + width - 0.02, y + 0.13, z + 0.1));
}

void MainBuilding(SampleKit& kit) {
    kit.Group("House");
    kit.Texture("Stone.jpg", 0.7);
    kit.Block(At(-0.5, 0, -3.05), At(2.25, 0.2, -1.25));
    kit.Texture("Brick.jpg", 0.75);
    kit.Block(At(-0.4, 0.2, -3), At(2.2, kEaves, -1.3));
    Gable(kit, 1.3, 3.0, -0.4, 2.2, true);
    kit.Block(At(1.55, 1.3, -2.55), At(1.8, 1.98, -2.3));
    kit.Texture("Stone.jpg", 0.5);
    kit.Block(At(1.51, 1.98, -2.59), At(1.84, 2.03, -2.26));
    kit.Texture("Roof_Tiles.gif", 0.8);
    RoofAlongX(kit, -1.3, -2.15, -0.6, 2.38);
    RoofAlongX(kit, -3.0, -2.15, -0.6, 2.38);
    Window(kit, 0.85, 0.48, -1.3, 0.4, 0.38);
    FlowerBox(kit, 0.82, 0.38, -1.24, 0.46);
    Window(kit, 1.55, 0.48, -1.3, 0.4, 0.38);
    FlowerBox(kit, 1.52, 0.38, -1.24, 0.46);
}

void Timber(SampleKit& kit, double left, double right, double front) {
    kit.Texture("Planks.jpg", 0.6);
    for (const double x : {left, (left + right) / 2 - 0.04, right - 0.08}) {
        kit.Block(At(x, 0.2, front), At(x + 0.08, kEaves, front + 0.025));
    }
    kit.Block(At(left, kEaves - 0.05, front), At(right, kEaves + 0.03, front + 0.03));
    kit.Block(At(left, 0.2, front), At(right, 0.27, front + 0.03));
}

void Wing(SampleKit& kit) {
    kit.Group("Wing");
    kit.Texture("Stone.jpg", 0.7);
    kit.Block(At(-2.05, 0, -3.05), At(-0.35, 0.2, -0.85));
    kit.Texture("Plaster.bmp", 1.2);
    kit.Block(At(-2, 0.2, -3), At(-0.4, kEaves, -0.9));
    Gable(kit, -2, -0.4, -3, -0.9, false);
    Timber(kit, -2, -0.4, -0.9);
    kit.Texture("Roof_Tiles.gif", 0.8);
    RoofAlongZ(kit, -2, -1.2, -3.15, -0.72);
    RoofAlongZ(kit, -0.4, -1.2, -3.15, -0.72);
    Window(kit, -1.82, 0.45, -0.9, 0.46, 0.42);
    Window(kit, -1.04, 0.45, -0.9, 0.46, 0.42);
    Window(kit, -1.34, 1.18, -0.9, 0.28, 0.26);
}

void Porch(SampleKit& kit) {
    kit.Group("Porch");
    kit.Texture("Stone.jpg", 0.5);
    kit.Block(At(-0.05, 0, -1.3), At(0.7, 0.12, -0.85));
    kit.Block(At(0, 0, -0.85), At(0.65, 0.08, -0.7));
    kit.Texture("Door.tga", 0);
    kit.Block(At(0.13, 0.12, -1.3), At(0.52, 0.85, -1.26));
    kit.Texture("Planks.jpg", 0.5);
    kit.Block(At(0, 0.12, -0.96), At(0.07, 0.92, -0.89));
    kit.Block(At(0.58, 0.12, -0.96), At(0.65, 0.92, -0.89));
    kit.Texture("Shingles.tga", 0.5);
    Brush& roof = kit.Block(At(-0.08, 0, -1.3), At(0.73, 0.06, -0.8));
    kit.Reshape(roof, [](const Vec3& p) { return At(p.x, 0.92 - (p.z + 0.9) * 0.3 + p.y, p.z); });
}

void Barrel(SampleKit& kit, double x, double z) {
    kit.Group("Barrel");
    kit.Texture("Planks.jpg", 0.4);
    Brush& barrel = kit.Drum(x, z, 0.14, kGround, 0.36, 12);
    kit.TurnTexture(barrel, 90);
    SampleKit::Smooth(barrel);
    kit.Texture("Water.jpg", 0.5);
    kit.Drum(x, z, 0.12, 0.36, 0.37, 12);
    kit.Texture("Metal.tga", 0.3);
    for (const double y : {0.11, 0.27}) {
        SampleKit::Smooth(kit.Drum(x, z, 0.15, y, y + 0.035, 12));
    }
}

}  // namespace

Scene BuildHouse(TextureLibrary& library) {
    SampleKit kit(library);
    Garden(kit);
    MainBuilding(kit);
    Wing(kit);
    Porch(kit);
    Pond(kit);
    Fence(kit);
    FirTree(kit, 2.7, -1.0, 1.5);
    FirTree(kit, 2.65, -2.9, 1.7);
    FirTree(kit, 2.1, 0.2, 0.9);
    RoundTree(kit, -2.6, -0.9);
    Barrel(kit, -0.2, -0.75);
    kit.MoveAhead(0.5);  // into the start camera's view
    return kit.Object();
}

}  // namespace korvane
