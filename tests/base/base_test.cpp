// Rounding, number texts and single-byte text.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "base/Flag16.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/SingleByteText.h"

namespace korvane {
namespace {

TEST(Flag16Test, OnlyMinusOneIsTrue) {
    EXPECT_TRUE(Flag16(true));
    EXPECT_EQ(Flag16(true).raw, -1);
    for (const std::int16_t raw : {0, 1, 2, -2, 255}) EXPECT_FALSE(Flag16::FromRaw(raw)) << raw;
}

TEST(RoundingTest, FloorAndHalfToEvenDifferAndIntegersAreClamped) {
    struct Row {
        double x, floor, round;
    };
    for (const Row& row : {Row{0.5, 0, 0}, Row{1.5, 1, 2}, Row{2.5, 2, 2}, Row{-0.5, -1, 0},
                           Row{-1.5, -2, -2}, Row{-0.2, -1, 0}, Row{3, 3, 3}}) {
        EXPECT_EQ(Int(row.x), row.floor) << row.x;
        EXPECT_EQ(Round(row.x), row.round) << row.x;
    }
    EXPECT_EQ(Round(0.125, 2), 0.12);
    EXPECT_EQ(Round(1.70710678, 2), 1.71);
    EXPECT_EQ(RoundToInt(1e300), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(FloorToInt(-1e300), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(RoundToInt(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(NumberTextTest, FixedFormats) {
    EXPECT_EQ(FormatFixed(-0.04, 1, 1), "0.0");
    EXPECT_EQ(FormatFixed(-12.5, 1, 1), "-12.5");
    EXPECT_EQ(FormatFixed(2.25, 1, 2), "2.25");
    EXPECT_EQ(FormatFixed(1.1F, 1, 2), "1.1");
    EXPECT_EQ(FormatFixed(7, 0, 0), "7");
    EXPECT_EQ(FormatPadded(7, 4) + FormatPadded(10000, 4), "000710000");
    EXPECT_EQ(FormatGrouped(999) + " " + FormatGrouped(1234567), "999 1,234,567");
    EXPECT_EQ(FormatGrouped(-123456), "-123,456");
    EXPECT_EQ(FormatGeneral(0.1F) + " " + FormatGeneral(4.0F), "0.1 4");
    EXPECT_EQ(FormatGeneral(-0.0F), "0");
}

TEST(NumberTextTest, RoundedTextsOfAllFloatsAreThoseOfTheFixedFormatAndNumbers) {
    std::mt19937 random(1);
    for (int i = 0; i < 100'000; ++i) {
        const bool usual = i % 2 == 0;
        const float value = usual ? static_cast<float>(random()) / 2e6F - 999
                                  : std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        std::string text = "x";
        AppendRounded(text, value);
        ASSERT_EQ(text, "x" + FormatFixed(Finite(value), 0, 6));
    }
    std::string text;
    AppendRounded(text, std::numeric_limits<float>::quiet_NaN());
    AppendRounded(text, -std::numeric_limits<float>::infinity());
    EXPECT_EQ(text, "0-340282346638528859811704183484516925440");
}

TEST(NumberTextTest, NumericValueReadsTheLeadingNumber) {
    struct Row {
        const char* text;
        double value;
    };
    for (const Row& row :
         {Row{"12", 12}, Row{" 3.6 sides", 3.6}, Row{"-.5", -0.5}, Row{"abc", 0}, Row{"", 0},
          Row{"1,5", 1}, Row{"+7", 7}, Row{"1e2", 100}, Row{"inf", 0}, Row{"nan", 0}, Row{"--3", 0},
          Row{"-inf", 0}, Row{"+-5", 0}, Row{"+", 0}, Row{"-", 0}, Row{"1e-400", 0},
          Row{"-1e400", -HUGE_VAL}, Row{"9e999 sides", HUGE_VAL}}) {
        EXPECT_EQ(NumericValue(row.text), row.value) << row.text;
    }
    EXPECT_EQ(NumericValue("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(NumericValue(std::string(400, '1') + ".5"), HUGE_VAL);
}

TEST(SingleByteTextTest, EveryByteSurvivesTheRoundTrip) {
    std::string bytes;
    for (int b = 0; b < 256; ++b) bytes += static_cast<char>(b);
    EXPECT_EQ(ToSingleByte(FromSingleByte(bytes)), bytes);
    EXPECT_EQ(CharacterCount(FromSingleByte(bytes)), 256U);
}

TEST(SingleByteTextTest, CharactersOutsideTheCodePage) {
    EXPECT_EQ(ToSingleByte("\u20AC"), "\x80");  // in the page, at 0x80
    EXPECT_EQ(ToSingleByte("\u0416"), "\x16");  // Cyrillic: the low 8 bits of 0x0416
    EXPECT_EQ(ToSingleByte("\xFFx"), "\xFFx");  // no UTF-8: kept
    for (const char* malformed : {"\xE2\x82", "\xC0\x80", "\xE0\x80\xC1", "\xE0\x9F\xBF",
                                  "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80"}) {
        EXPECT_EQ(ToSingleByte(malformed), malformed) << "cut, too long, or no character: kept";
    }
    EXPECT_EQ(ToSingleByte("\u0800\uFFFD\U00010000\U0010FFFF"),
              (std::string{0, '\xFD', 0, '\xFF'}));
}

TEST(SingleByteTextTest, TheUpperHalfOfTheControlCodesHoldsLettersAndMarks) {
    std::string bytes;
    for (int b = 0x80; b < 0xA0; ++b) bytes += static_cast<char>(b);
    EXPECT_EQ(FromSingleByte(bytes), "€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ");
    EXPECT_EQ(LowerCase("ŠŒŽŸÀÞ"), "šœžÿàþ");
    EXPECT_EQ(UpperCase("šœžÿàþ÷ƒß"), "ŠŒŽŸÀÞ÷ƒß");
}

TEST(SingleByteTextTest, CaseIsIgnoredOverTheWholeCodePage) {
    EXPECT_TRUE(EqualIgnoringCase("BRICK.jpg", "brick.JPG"));
    EXPECT_TRUE(EqualIgnoringCase("Fu\u00DF\u00C4\u0160\u0178", "fu\u00DF\u00E4\u0161\u00FF"));
    EXPECT_FALSE(EqualIgnoringCase("\u00D7", "\u00F7"));  // the multiplication sign is no letter
    EXPECT_FALSE(EqualIgnoringCase("\u0416", "\u0436"));  // outside the page: compared as it is
    EXPECT_EQ(UpperCase("mats\u00FF"), "MATS\u0178");
}

}  // namespace
}  // namespace korvane
