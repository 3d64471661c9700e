// A castle tower inside its curtain wall, on an island in a moat.
#include "examples/SampleKit.h"

namespace korvane {
namespace {

constexpr double kZ = -0.7;     // the tower stands at (0, kZ)
constexpr double kSoil = 0.2;   // height of the island
constexpr double kWall = 0.95;  // half the side of the curtain wall
constexpr double kWallTop = 0.62;

Vec3 At(double x, double y, double z) {
    return {float(x), float(y), float(z)};
}

void Island(SampleKit& kit) {
    kit.Group("Land");
    kit.Texture("Grass.jpg", 1.3);
    kit.Block(At(-3.4, -0.1, -4), At(3.4, 0.05, 2.3));
    kit.Group("Moat");
    kit.Texture("Water.jpg", 1.2);
    kit.Drum(0, kZ, 1.95, 0, 0.07, 32);
    kit.Texture("Sand.bmp", 0.8);
    constexpr int kBanks = 32;
    for (int i = 0; i < kBanks; ++i) {
        Brush& bank =
            kit.Block(At(-0.21, 0, kZ + 1.9), At(0.21, i % 2 == 0 ? 0.1 : 0.11, kZ + 2.1));
        kit.Turn(bank, i * 360.0 / kBanks, 0, kZ);
    }
    kit.Group("Island");
    kit.Texture("Cobble.jpeg", 0.8);
    kit.Taper(kit.Drum(0, kZ, 1.55, 0, kSoil, 24), 0.94);
}

/// Blocks with gaps between along one side of the wall, the side turned from the front one.
void Battlements(SampleKit& kit, double degrees, double from, double to, int count) {
    const double pitch = (to - from) / count;
    for (int i = 0; i < count; ++i) {
        const double x = from + pitch * (i + 0.5);
        Brush& merlon = kit.Block(At(x - pitch * 0.3, kWallTop, kZ + kWall + 0.03),
                                  At(x + pitch * 0.3, kWallTop + 0.1, kZ + kWall + 0.09));
        kit.Turn(merlon, degrees, 0, kZ);
    }
}

void WallSide(SampleKit& kit, double degrees, double from, double to) {
    Brush& wall =
        kit.Block(At(from, kSoil, kZ + kWall - 0.07), At(to, kWallTop, kZ + kWall + 0.07));
    kit.Turn(wall, degrees, 0, kZ);
    Brush& ledge =
        kit.Block(At(from, kWallTop - 0.06, kZ + kWall + 0.07), At(to, kWallTop, kZ + kWall + 0.1));
    kit.Turn(ledge, degrees, 0, kZ);
}

void CurtainWall(SampleKit& kit) {
    kit.Group("Curtain wall");
    kit.Texture("Stone.jpg", 0.5);
    for (const double degrees : {90.0, 180.0, 270.0}) {
        WallSide(kit, degrees, -kWall, kWall);
        Battlements(kit, degrees, -kWall + 0.22, kWall - 0.22, 8);
    }
    WallSide(kit, 0, -kWall, -0.28);
    WallSide(kit, 0, 0.28, kWall);
    Battlements(kit, 0, -kWall + 0.22, -0.3, 3);
    Battlements(kit, 0, 0.3, kWall - 0.22, 3);
}

void CornerTower(SampleKit& kit, double x, double z) {
    kit.Group("Corner tower");
    kit.Texture("Stone.jpg", 0.5);
    Brush& foot = kit.Drum(x, z, 0.25, kSoil - 0.05, kSoil + 0.15, 12);
    kit.Taper(foot, 0.84);
    SampleKit::Smooth(foot);
    SampleKit::Smooth(kit.Drum(x, z, 0.2, kSoil, 0.78, 12));
    Brush& crown = kit.Drum(x, z, 0.2, 0.72, 0.84, 12);
    kit.Taper(crown, 1.2);
    SampleKit::Smooth(crown);
    kit.Texture("Shingles.tga", 0.5);
    SampleKit::Smooth(kit.Spire(x, z, 0.28, 0.84, 1.22, 12));
    kit.Texture("Metal.tga", 0.3);
    SampleKit::Smooth(kit.Ball(At(x, 1.22, z), 0.03, 6));
}

void GateHouse(SampleKit& kit) {
    const double front = kZ + kWall + 0.16;
    kit.Group("Gate house");
    kit.Texture("Stone.jpg", 0.5);
    kit.Block(At(-0.3, kSoil, kZ + kWall - 0.16), At(0.3, 0.8, front));
    kit.Block(At(-0.34, 0.76, kZ + kWall - 0.2), At(0.34, 0.82, front + 0.04));
    for (const double x : {-0.3, -0.05, 0.2}) {
        kit.Block(At(x, 0.82, front - 0.04), At(x + 0.1, 0.92, front + 0.03));
        kit.Block(At(x, 0.82, front - 0.34), At(x + 0.1, 0.92, front - 0.27));
    }
    kit.Texture("Door.tga", 0);
    kit.Block(At(-0.16, kSoil, front), At(0, 0.56, front + 0.02));
    kit.Block(At(0, kSoil, front), At(0.16, 0.56, front + 0.02));
    kit.Texture("Planks.jpg", 0.4);
    kit.Block(At(-0.2, 0.56, front), At(0.2, 0.61, front + 0.04));
}

void Bridge(SampleKit& kit) {
    kit.Group("Bridge");
    kit.Texture("Planks.jpg", 0.5);
    const double from = kZ + 1.35, to = kZ + 2.2;
    Brush& deck = kit.Block(At(-0.2, 0.15, from), At(0.2, 0.2, to));
    kit.TurnTexture(deck, 90);
    for (const double x : {-0.2, 0.17}) {
        kit.Block(At(x, 0.32, from), At(x + 0.03, 0.35, to));
        for (int i = 0; i < 4; ++i) {
            const double z = from + (to - from - 0.04) * i / 3;
            kit.Block(At(x - 0.005, 0.05, z), At(x + 0.035, 0.4, z + 0.04));
        }
    }
    kit.Texture("Cobble.jpeg", 0.6);
    Brush& ramp = kit.Block(At(-0.24, 0, to), At(0.24, 0.2, 1.9));
    kit.Reshape(ramp, [to](const Vec3& p) {
        const bool end = p.z > to + 0.01 && p.y > 0.1F;
        return end ? At(p.x, 0.06, p.z) : p;
    });
}

void Shaft(SampleKit& kit) {
    kit.Group("Tower");
    kit.Texture("Stone.jpg", 0.6);
    Brush& foot = kit.Drum(0, kZ, 0.62, kSoil - 0.05, 0.45, 20);
    kit.Taper(foot, 0.85);
    SampleKit::Smooth(foot);
    SampleKit::Smooth(kit.Drum(0, kZ, 0.5, kSoil, 1.36, 20));
    Brush& cornice = kit.Drum(0, kZ, 0.5, 1.26, 1.4, 20);
    kit.Taper(cornice, 1.24);
    SampleKit::Smooth(cornice);
    SampleKit::Smooth(kit.Drum(0, kZ, 0.62, 1.4, 1.5, 20));
    constexpr int kMerlons = 14;
    for (int i = 0; i < kMerlons; ++i) {
        Brush& merlon = kit.Block(At(-0.08, 1.5, kZ + 0.53), At(0.08, 1.63, kZ + 0.61));
        kit.Turn(merlon, i * 360.0 / kMerlons, 0, kZ);
    }
}

void Openings(SampleKit& kit) {
    kit.Group("Tower windows");
    struct Row {
        double y;
        int count;
        double turned;
    };
    for (const Row& row : {Row{0.72, 6, 0}, Row{1.0, 6, 30}}) {
        for (int i = 0; i < row.count; ++i) {
            const double degrees = row.turned + i * 360.0 / row.count;
            kit.Texture("Window.tga", 0);
            Brush& slit = kit.Block(At(-0.06, row.y, kZ + 0.45), At(0.06, row.y + 0.17, kZ + 0.51));
            kit.Turn(slit, degrees, 0, kZ);
            kit.Texture("Marble_White.jpe", 0.5);
            Brush& sill = kit.Block(At(-0.08, row.y - 0.03, kZ + 0.45), At(0.08, row.y, kZ + 0.54));
            kit.Turn(sill, degrees, 0, kZ);
        }
    }
}

void Top(SampleKit& kit) {
    kit.Group("Tower roof");
    kit.Texture("Brick.jpg", 0.5);
    SampleKit::Smooth(kit.Drum(0, kZ, 0.34, 1.5, 1.74, 16));
    kit.Texture("Roof_Tiles.gif", 0.6);
    SampleKit::Smooth(kit.Spire(0, kZ, 0.44, 1.72, 2.12, 16));
    kit.Texture("Metal.tga", 0.3);
    SampleKit::Smooth(kit.Drum(0, kZ, 0.014, 2.05, 2.27, 6));
    kit.Texture("Roof_Tiles.gif", 0.6);
    kit.Block(At(0.014, 2.14, kZ - 0.006), At(0.26, 2.26, kZ + 0.006));
}

}  // namespace

Scene BuildCastleTower(TextureLibrary& library) {
    SampleKit kit(library);
    Island(kit);
    CurtainWall(kit);
    for (const double x : {-kWall, kWall}) {
        for (const double z : {kZ - kWall, kZ + kWall}) CornerTower(kit, x, z);
    }
    GateHouse(kit);
    Bridge(kit);
    Shaft(kit);
    Openings(kit);
    Top(kit);
    kit.MoveAhead(0.4);  // into the start camera's view
    return kit.Object();
}

}  // namespace korvane
