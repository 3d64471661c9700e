// The field encoding: a reader that knows the end. The bytes of every field kind are those of the
// reference files.
#include <gtest/gtest.h>

#include <limits>

#include "files/FileBuffer.h"

namespace korvane {
namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

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
        FileWriter written;
        written.WriteLong(stored);
        written.Append(24);
        FileReader file(written.Bytes());
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
