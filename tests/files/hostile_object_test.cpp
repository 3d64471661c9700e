// Object files that are cut or hold what no field may: refused. The replay of fuzz/ damages every
// byte and watches the memory.
#include <gtest/gtest.h>

#include <limits>

#include "files/LittleEndian.h"
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

}  // namespace
}  // namespace korvane
