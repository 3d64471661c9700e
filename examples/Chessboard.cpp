// A chess table with all its pieces at the start of a game.
#include "examples/SampleKit.h"

namespace korvane {
namespace {

constexpr double kField = 0.52;
constexpr double kCentreZ = -0.4;
constexpr double kTop = 0.62;  // height of the fields

Vec3 At(double x, double y, double z) {
    return {float(x), float(y), float(z)};
}

/// Where a piece stands and which way it looks.
struct Place {
    double x, z;
    double ahead;  ///< 1 towards +Z, -1 towards -Z
};

Place FieldAt(int column, int row) {  // row 0 is White's, nearest to the start camera
    return {(column - 3.5) * kField, kCentreZ + (3.5 - row) * kField, row < 4 ? -1.0 : 1.0};
}

void Room(SampleKit& kit) {
    kit.Group("Floor");
    kit.Texture("Stone.jpg", 1.2);
    kit.Block(At(-3.6, -0.1, -4.4), At(3.6, 0.03, 2.6));
    kit.Group("Table");
    kit.Texture("Planks.jpg", 1.2);
    kit.Block(At(-2.7, 0.4, kCentreZ - 2.7), At(2.7, 0.5, kCentreZ + 2.7));
    for (const double x : {-2.5, 2.5}) {
        for (const double z : {kCentreZ - 2.5, kCentreZ + 2.5}) {
            kit.Taper(kit.Drum(x, z, 0.12, 0.1, 0.4, 10), 1.3);
            kit.Ball(At(x, 0.12, z), 0.11, 8);
        }
    }
}

void Board(SampleKit& kit) {
    const double half = 4 * kField, rim = half + 0.24;
    kit.Group("Board");
    kit.Texture("Chessboard.jpg", 0);
    kit.Block(At(-half, 0.5, kCentreZ - half), At(half, kTop, kCentreZ + half));
    kit.Texture("Planks.jpg", 0.8);
    for (const double side : {-1.0, 1.0}) {
        const double z = kCentreZ + side * (half + 0.12), x = side * (half + 0.12);
        kit.Block(At(-rim, 0.5, z - 0.12), At(rim, kTop + 0.03, z + 0.12));
        kit.TurnTexture(kit.Block(At(x - 0.12, 0.5, kCentreZ - half),
                                  At(x + 0.12, kTop + 0.03, kCentreZ + half)),
                        90);
    }
}

/// Studs in the rim, one for each row and column.
void Studs(SampleKit& kit) {
    kit.Group("Studs");
    kit.Texture("Metal.tga", 1.0);
    const double reach = 4 * kField + 0.12, top = kTop + 0.03;
    for (int i = 0; i < 8; ++i) {
        const double along = (i - 3.5) * kField;
        for (const double side : {-reach, reach}) {
            kit.Spire(along, kCentreZ + side, 0.05, top, top + 0.03, 8);
            kit.Spire(side, kCentreZ + along, 0.05, top, top + 0.03, 8);
        }
    }
    for (const double x : {-reach, reach}) {
        for (const double side : {-reach, reach}) kit.Ball(At(x, top, kCentreZ + side), 0.07, 8);
    }
}

void Clock(SampleKit& kit) {
    constexpr double kX = 2.5;
    kit.Group("Clock");
    kit.Texture("Planks.jpg", 0.4);
    kit.Block(At(kX - 0.1, 0.5, kCentreZ - 0.4), At(kX + 0.15, 0.53, kCentreZ + 0.4));
    kit.Taper(kit.Block(At(kX - 0.08, 0.53, kCentreZ - 0.36), At(kX + 0.1, 0.82, kCentreZ + 0.36)),
              0.85);
    for (const double z : {kCentreZ - 0.17, kCentreZ + 0.17}) {
        kit.Texture("Marble_White.jpe", 0.5);
        Brush& dial = kit.Drum(0, 0, 0.12, 0, 0.1, 16);
        kit.Reshape(dial, [z](const Vec3& p) { return At(kX - p.y, 0.68 + p.x, z + p.z); });
        kit.Texture("Metal.tga", 0.3);
        kit.Drum(kX, z, 0.035, 0.82, 0.87, 8);
    }
}

void Round(SampleKit& kit, const Place& at, double radius, double from, double to,
           double taper = 1) {
    Brush& brush = kit.Drum(at.x, at.z, radius, kTop + from, kTop + to, 10);
    if (taper != 1) kit.Taper(brush, taper);
    SampleKit::Smooth(brush);
}

void Knob(SampleKit& kit, const Place& at, double height, double radius) {
    SampleKit::Smooth(kit.Ball(At(at.x, kTop + height, at.z), radius, 8));
}

/// The foot that every piece stands on, with a neck up to `neck`.
void Foot(SampleKit& kit, const Place& at, double radius, double neck) {
    Round(kit, at, radius, 0, 0.05);
    Round(kit, at, radius * 0.86, 0.05, 0.09, 0.8);
    Round(kit, at, radius * 0.62, 0.09, neck, 0.55);
}

void Collar(SampleKit& kit, const Place& at, double height, double radius) {
    Round(kit, at, radius * 0.6, height, height + 0.02, 1.5);
    Round(kit, at, radius * 0.9, height + 0.02, height + 0.045, 0.7);
}

void Pawn(SampleKit& kit, const Place& at) {
    Foot(kit, at, 0.15, 0.28);
    Collar(kit, at, 0.27, 0.1);
    Knob(kit, at, 0.36, 0.085);
}

void Rook(SampleKit& kit, const Place& at) {
    Foot(kit, at, 0.17, 0.34);
    Collar(kit, at, 0.3, 0.12);
    Round(kit, at, 0.1, 0.345, 0.43, 1.3);
    constexpr int kMerlons = 6;
    for (int i = 0; i < kMerlons; ++i) {
        Brush& merlon = kit.Block(At(at.x - 0.035, kTop + 0.43, at.z + 0.08),
                                  At(at.x + 0.035, kTop + 0.48, at.z + 0.12));
        kit.Turn(merlon, i * 360.0 / kMerlons, at.x, at.z);
    }
}

/// A box of the knight, given in steps ahead, sideways and up, and leaning ahead on its way up.
struct Part {
    double from, to;     ///< ahead
    double half;         ///< half its width
    double bottom, top;  ///< height above the field
    double lean;         ///< how far ahead the top lies
};

void KnightPart(SampleKit& kit, const Place& at, const Part& part) {
    Brush& brush =
        kit.Block(At(-part.half, part.bottom, part.from), At(part.half, part.top, part.to));
    const double middle = (part.bottom + part.top) / 2;
    kit.Reshape(brush, [&](const Vec3& p) {
        const double forward = p.z + (p.y > middle ? part.lean : 0);
        return At(at.x + p.x * at.ahead, kTop + p.y, at.z + forward * at.ahead);
    });
}

void Knight(SampleKit& kit, const Place& at) {
    constexpr Part kParts[] = {
        {-0.10, 0.08, 0.07, 0.16, 0.30, -0.03},  // chest
        {-0.13, 0.04, 0.06, 0.30, 0.44, 0.04},   // neck
        {-0.09, 0.07, 0.055, 0.40, 0.50, 0.03},  // head
        {0.05, 0.16, 0.045, 0.39, 0.47, -0.02},  // muzzle
        {-0.15, -0.11, 0.02, 0.28, 0.50, 0.05},  // mane
    };
    Round(kit, at, 0.17, 0, 0.05);
    Round(kit, at, 0.146, 0.05, 0.09, 0.8);
    Round(kit, at, 0.11, 0.09, 0.17, 0.9);
    for (const Part& part : kParts) KnightPart(kit, at, part);
    for (const double side : {-0.03, 0.03}) {
        kit.Spire(at.x + side, at.z - 0.03 * at.ahead, 0.022, kTop + 0.49, kTop + 0.56, 4);
    }
}

void Bishop(SampleKit& kit, const Place& at) {
    Foot(kit, at, 0.165, 0.44);
    Collar(kit, at, 0.4, 0.115);
    Brush& mitre = kit.Ball(At(at.x, kTop + 0.54, at.z), 0.085, 8);
    kit.Reshape(mitre, [](const Vec3& p) {
        return At(p.x, kTop + 0.54 + (p.y - kTop - 0.54) * 1.45, p.z);
    });
    SampleKit::Smooth(mitre);
    Knob(kit, at, 0.675, 0.028);
}

void Queen(SampleKit& kit, const Place& at) {
    Foot(kit, at, 0.18, 0.54);
    Collar(kit, at, 0.5, 0.13);
    Round(kit, at, 0.075, 0.545, 0.66, 1.65);
    constexpr int kPoints = 8;
    for (int i = 0; i < kPoints; ++i) {
        Brush& point = kit.Spire(at.x, at.z + 0.1, 0.03, kTop + 0.66, kTop + 0.72, 5);
        kit.Turn(point, i * 360.0 / kPoints, at.x, at.z);
    }
    Knob(kit, at, 0.68, 0.06);
}

void King(SampleKit& kit, const Place& at) {
    Foot(kit, at, 0.18, 0.6);
    Collar(kit, at, 0.56, 0.135);
    Round(kit, at, 0.08, 0.605, 0.72, 1.5);
    Round(kit, at, 0.12, 0.72, 0.76, 0.3);
    const double y = kTop + 0.75;
    kit.Block(At(at.x - 0.018, y, at.z - 0.018), At(at.x + 0.018, y + 0.14, at.z + 0.018));
    kit.Block(At(at.x - 0.05, y + 0.06, at.z - 0.018), At(at.x + 0.05, y + 0.095, at.z + 0.018));
}

struct Piece {
    const char* name;
    void (*build)(SampleKit&, const Place&);
};

constexpr Piece kBackRow[] = {{"rook", Rook},     {"knight", Knight}, {"bishop", Bishop},
                              {"queen", Queen},   {"king", King},     {"bishop", Bishop},
                              {"knight", Knight}, {"rook", Rook}};

void Side(SampleKit& kit, const std::string& color, const std::string& texture, int back,
          int pawns) {
    kit.Texture(texture, 0.5);
    for (int column = 0; column < 8; ++column) {
        const std::string file(1, char('a' + column));
        kit.Group(color + " " + kBackRow[column].name + " " + file);
        kBackRow[column].build(kit, FieldAt(column, back));
        kit.Group(color + " pawn " + file);
        Pawn(kit, FieldAt(column, pawns));
    }
}

}  // namespace

Scene BuildChessboard(TextureLibrary& library) {
    SampleKit kit(library);
    Room(kit);
    Board(kit);
    Studs(kit);
    Clock(kit);
    Side(kit, "White", "Marble_White.jpe", 0, 1);
    Side(kit, "Black", "Marble_Black.tga", 7, 6);
    return kit.Object();
}

}  // namespace korvane
