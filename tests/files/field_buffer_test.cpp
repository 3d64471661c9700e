// The field encoding: a reader that knows the end. The bytes of every field kind are those of the
// reference files.
#include <gtest/gtest.h>

#include <bit>
#include <limits>

#include "files/FileBuffer.h"

namespace korvane {
namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

template <typename Write>
Bytes Written(Write write) {
    FileWriter file;
    write(file);
    return file.TakeBytes();
}

TEST(FileReaderTest, ReadsWhatWasWritten) {
    const Bytes bytes = Written([](FileWriter& f) {
        f.WriteByte(200);
        f.WriteLong(std::numeric_limits<std::int32_t>::min());
        f.WriteSingle(std::bit_cast<float>(0x7FC12345));
        f.WriteTag("mats");
        f.WriteCountedString("T\u00FCr \u20AC");
        f.WriteCountedString("");
        f.WriteLong(9);
    });
    FileReader file(bytes);
    EXPECT_EQ(file.ReadByte(), 200);
    EXPECT_EQ(file.ReadLong(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(std::bit_cast<std::uint32_t>(file.ReadSingle()), 0x7FC12345U) << "NaN bits stay";
    EXPECT_EQ(file.ReadTag(), "MATS");
    EXPECT_EQ(file.ReadCountedString(), "T\u00FCr \u20AC");
    EXPECT_EQ(file.ReadCountedString(), "");
    EXPECT_FALSE(file.AtEnd());
    EXPECT_EQ(file.ReadLong(), 9);
    EXPECT_TRUE(file.AtEnd());
    EXPECT_TRUE(file.Good());
}

TEST(FileReaderTest, AFailureIsForGood) {
    struct Row {
        const char* what;
        void (*read)(FileReader&);
    };
    const Row rows[] = {
        {"Long past the end", [](FileReader& f) { EXPECT_EQ(f.ReadLong(), 0); }},
        {"Single past the end", [](FileReader& f) { EXPECT_EQ(f.ReadSingle(), 0); }},
        {"tag past the end", [](FileReader& f) { EXPECT_EQ(f.ReadTag(), ""); }},
        {"long text", [](FileReader& f) { EXPECT_EQ(f.ReadString(4), ""); }},
        {"negative text", [](FileReader& f) { EXPECT_EQ(f.ReadString(-1), ""); }},
        {"far skip", [](FileReader& f) { f.Skip(kLargest); }},
        {"negative skip", [](FileReader& f) { f.Skip(-3); }},
        {"take", [](FileReader& f) { EXPECT_EQ(f.Take(4), nullptr); }},
        {"huge take", [](FileReader& f) { EXPECT_EQ(f.Take(SIZE_MAX), nullptr); }},
        {"said so", [](FileReader& f) { f.Fail(); }},
    };
    const Bytes bytes = {1, 2, 3};
    for (const Row& row : rows) {
        FileReader file(bytes);
        row.read(file);
        EXPECT_FALSE(file.Good()) << row.what;
        EXPECT_EQ(file.ReadByte(), 0) << row.what << ": the bytes that remain are not read";
        EXPECT_FALSE(file.Good()) << row.what;
    }
}

TEST(FileReaderTest, CountsMustFitIntoWhatRemains) {
    const auto countOf = [](std::int32_t stored, std::size_t recordSize) {
        const Bytes bytes = Written([&](FileWriter& f) {
            f.WriteLong(stored);
            f.Append(24);
        });
        FileReader file(bytes);
        const std::int32_t count = file.ReadCount(recordSize);
        EXPECT_EQ(file.Good(), count == stored);
        return count;
    };
    EXPECT_EQ(countOf(2, 12), 2);
    EXPECT_EQ(countOf(3, 12), 0);
    EXPECT_EQ(countOf(0, 12), 0);
    EXPECT_EQ(countOf(-1, 12), 0);
    EXPECT_EQ(countOf(kLargest, 12), 0);
    EXPECT_EQ(countOf(0x15555556, 12), 0) << "its product with 12 is 8 in 32 bits";
}

}  // namespace
}  // namespace korvane
