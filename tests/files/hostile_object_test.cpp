// Object files that are cut, corrupted or made to hurt: refused, without a crash and without memory
// beyond a few times their size.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <utility>

#include "files/FileBuffer.h"
#include "files/LittleEndian.h"
#include "files/PeakMemory.h"
#include "files/mObjectFile.h"
#include "support/TempFolder.h"

namespace korvane {
namespace {

using test::Bytes;

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

Bytes Golden(const std::string& name) {
    return test::FileBytes(std::string(KORVANE_GOLDEN_DIR) + "/" + name);
}

TEST(HostileObjectTest, EveryCutIsInvalid) {
    const std::size_t kTrailing = std::string_view("trailing bytes").size();
    struct Row {
        const char* name;
        bool withSelection;
        std::size_t optional;
    };
    for (const Row& row : {Row{"scene.kvobject", false, 0}, Row{"snapshot.kvobject", true, 0},
                           Row{"foreign.kvobject", false, kTrailing}}) {
        const Bytes whole = Golden(row.name);
        const std::size_t needed = whole.size() - row.optional;
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            // Exactly as long as its content, so that the sanitizer sees a step too far.
            const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            ASSERT_EQ(DecodeObject(cut, TextureLibrary(), row.withSelection).has_value(),
                      length >= needed)
                << row.name << " cut to " << length;
        }
    }
}

TEST(HostileObjectTest, EveryCheckedFieldIsChecked) {
    struct Row {
        const char* what;
        std::size_t at;
        std::vector<std::int32_t> invalid;
        std::vector<std::int32_t> valid;
    };
    const Row rows[] = {
        {"header tag", 0, {0, 0x4653424E}, {0x4653424F, 0x6673626F}},
        {"sizes, version", 4, {}, {0, -1, kLargest}},
        {"version", 8, {}, {0, 1, 3, kSmallest}},
        {"materials tag", 12, {0}, {0x7374616D}},
        {"reserved", 20, {}, {-1}},
        {"material count", 24, {-1, 0, 2, 4, kLargest, kSmallest}, {3}},
        {"name length", 28, {-1, 8, kLargest, kSmallest}, {9}},
        {"brushes tag", 59, {0}, {}},
        {"brush count", 71, {-1, 3, kLargest}, {0, 1, 2}},
        {"brush name length", 75, {-1, kLargest}, {10}},
        {"group length", 89, {-1, kLargest, kSmallest}, {5}},
        {"vertex count", 98, {-1, 0, kLargest, 0x15555556}, {8}},
        {"face count", 198, {-1, kLargest, 0x035E50D8}, {12}},
        {"corner a", 206, {-1, 8, kLargest, kSmallest}, {0, 7}},
        {"corner b", 210, {-1, 8}, {7}},
        {"corner c", 214, {-1, 8}, {7}},
        {"material index", 270, {3, kLargest}, {0, 2, -1, kSmallest}},
        {"face extension", 274, {-1, 6, kLargest, kSmallest}, {5}},
        {"next face extension", 279, {-1, kLargest}, {0}},
        {"brush extension", 1174, {-1, kLargest}, {8}},
        {"shape", 1178, {}, {kSmallest, -1, 2}},
        {"next brush extension", 1182, {-1, kLargest}, {0}},
    };
    const Bytes whole = Golden("scene.kvobject");
    for (const Row& row : rows) {
        for (const bool valid : {false, true}) {
            for (const std::int32_t value : valid ? row.valid : row.invalid) {
                Bytes bytes = whole;
                StoreLong(bytes.data() + row.at, value);
                EXPECT_EQ(DecodeObject(bytes, TextureLibrary(), false).has_value(), valid)
                    << row.what << " " << value;
            }
        }
    }
}

/// What the rest of the program relies on.
bool IsSound(const Brush& brush, const TextureLibrary& library) {
    const auto count = static_cast<std::int32_t>(brush.vertices.size());
    const auto within = [count](std::int32_t i) { return i >= 0 && i < count; };
    for (const BrushFace& face : brush.faces) {
        if (!within(face.a) || !within(face.b) || !within(face.c)) return false;
        if (face.texture < 0 || face.texture >= library.ListCount()) return false;
    }
    return true;
}

TEST(HostileObjectTest, CorruptedFilesAreRefusedOrSound) {
    TextureLibrary library;
    library.AddTexture("Mauer.bmp", 64, 64);
    const Bytes whole = Golden("snapshot.kvobject");
    std::mt19937 random(20240229);
    int refused = 0;
    int read = 0;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int change : {0x01, 0x80, 0xFF, static_cast<int>(1 + random() % 255)}) {
            Bytes bytes = whole;
            bytes[at] ^= static_cast<std::uint8_t>(change);
            const auto brushes = DecodeObject(bytes, library, true);
            ++(brushes ? read : refused);
            if (!brushes) continue;
            for (const Brush& brush : *brushes) {
                ASSERT_TRUE(IsSound(brush, library)) << "byte " << at << " ^ " << change;
            }
        }
    }
    EXPECT_GT(refused, 500);
    EXPECT_GT(read, 500);
}

/// A file up to the point where its chunks' contents differ.
FileWriter FileWithNames(std::int32_t count, std::size_t bodyBytes) {
    FileWriter file;
    file.WriteTag("OBSF");
    file.Append(8);
    file.WriteTag("MATS");
    file.Append(8);
    file.WriteLong(count);
    file.Append(bodyBytes);
    return file;
}

FileWriter FileWithBrushes(std::int32_t count) {
    FileWriter file = FileWithNames(0, 0);
    file.WriteTag("BRSH");
    file.Append(8);
    file.WriteLong(count);
    return file;
}

/// One brush up to its faces, with `vertices` vertices.
FileWriter FileWithVertices(std::int32_t vertices) {
    FileWriter file = FileWithBrushes(1);
    file.Append(8);
    file.WriteLong(vertices);
    for (std::int32_t v = 0; v < vertices; ++v) {
        for (int axis = 0; axis < 3; ++axis)
            file.WriteSingle(static_cast<float>(v) * static_cast<float>(axis + v));
    }
    return file;
}

/// Faces as small as they come, all of one polygon side; `corner` gives the vertex of a face's
/// corner 0, 1 or 2.
FileWriter FileWithFaces(std::int32_t vertices, std::int32_t faces,
                         std::int32_t (*corner)(std::int32_t face, std::int32_t i)) {
    FileWriter file = FileWithVertices(vertices);
    file.WriteLong(faces);
    for (std::int32_t f = 0; f < faces; ++f) {
        file.WriteLong(3);
        for (std::int32_t i = 0; i < 3; ++i) file.WriteLong(corner(f, i) % vertices);
        file.Append(52);
        file.WriteLong(-1);  // no material
        file.WriteLong(0);
    }
    file.WriteLong(0);
    return file;
}

/// All meet in vertex 0.
std::int32_t FanCorner(std::int32_t face, std::int32_t i) {
    return i == 0 ? 0 : face + i - 1;
}

/// No vertex is shared: the most different vertices for the size of the file.
std::int32_t LooseCorner(std::int32_t face, std::int32_t i) {
    return 3 * face + i;
}

TEST(HostileObjectTest, MemoryStaysWithinAFewTimesTheFile) {
    constexpr std::int32_t kMany = 50'000;
    struct Row {
        const char* what;
        bool valid;
        FileWriter file;
    };
    std::vector<Row> rows;
    const auto add = [&rows](const char* what, bool valid, FileWriter file) -> FileWriter& {
        return rows.emplace_back(Row{what, valid, std::move(file)}).file;
    };
    add("empty names only", false, FileWithNames(kMany, 4 * kMany));
    add("claimed names", false, FileWithNames(kLargest, 4 * kMany));
    add("claimed brushes", false, FileWithBrushes(kLargest)).Append(20 * kMany);
    add("empty brushes", true, FileWithBrushes(kMany)).Append(20 * kMany);
    add("claimed faces", false, FileWithVertices(kMany)).WriteLong(kLargest);
    add("faces of one vertex", true, FileWithFaces(1, kMany, FanCorner));
    add("a fan of small faces", true, FileWithFaces(2'000, 2'000, FanCorner));
    add("loose faces", true, FileWithFaces(3 * kMany, kMany, LooseCorner));
    add("the same, large enough that nothing is kept", true,
        FileWithFaces(6 * kMany, 2 * kMany, LooseCorner));
    FileWriter& vertices = add("claimed vertices", false, FileWithBrushes(1));
    vertices.Append(8);
    vertices.WriteLong(kLargest);
    vertices.Append(12 * kMany);
    FileWriter& group = add("long group of wide characters", true, FileWithBrushes(1));
    group.Append(4);
    group.WriteLong(20 * kMany);
    std::fill_n(group.Append(20 * kMany), 20 * kMany, std::uint8_t{0x80});
    group.Append(12);

    for (const Row& row : rows) {
        const Bytes& bytes = row.file.Bytes();
        const TextureLibrary library;
        const std::size_t before = test::StartPeak();
        const bool valid = DecodeObject(bytes, library, false).has_value();
        const std::size_t used = test::PeakBytes() - before;
        EXPECT_EQ(valid, row.valid) << row.what;
        EXPECT_LE(used, 8 * bytes.size() + 4096) << row.what;
    }
}

}  // namespace
}  // namespace korvane
