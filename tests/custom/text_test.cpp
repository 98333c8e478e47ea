#include "custom/text.h"

#include <gtest/gtest.h>

#include <string>

namespace tessarine {
namespace {

struct CountCase {
  const char* name;
  std::string text;
  std::size_t count;
};

class CharacterCount : public ::testing::TestWithParam<CountCase> {};

TEST_P(CharacterCount, IsOfUserPerceivedCharacters) {
  EXPECT_EQ(characterCount(GetParam().text), GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CharacterCount,
    ::testing::Values(CountCase{"empty", "", 0}, CountCase{"letter", "a", 1},
                      CountCase{"word", "Icon", 4}, CountCase{"blanks", "  ", 2},
                      CountCase{"umlaut", "ö", 1}, CountCase{"combiningAccent", "e\u0301", 1},
                      CountCase{"family", "👨‍👩‍👧‍👦", 1},
                      CountCase{"skinTone", "👋🏿", 1}, CountCase{"flag", "🇩🇪", 1},
                      CountCase{"twoFlags", "🇩🇪🇫🇷", 2}, CountCase{"keycap", "1️⃣", 1},
                      CountCase{"crlf", "\r\n", 1}, CountCase{"lfcr", "\n\r", 2},
                      CountCase{"nul", std::string(2, '\0'), 2},
                      CountCase{"hangulJamo", "\u1112\u1161\u11ab", 1},
                      CountCase{"devanagari", "\u0928\u093f", 1},
                      CountCase{"tamil", "\u0ba8\u0bbf", 1},
                      CountCase{"khmer", "\u179f\u17d2\u178f\u17b8", 2},
                      CountCase{"brokenUTF8", "\xff\xfe", 2}, CountCase{"cutUTF8", "a\xf0\x9f", 2}),
    [](const auto& row) { return std::string(row.param.name); });

struct IntegerCase {
  const char* name;
  std::string text;
  std::int32_t value;
};

class IntValue : public ::testing::TestWithParam<IntegerCase> {};

TEST_P(IntValue, IsTheLeadingInteger) {
  EXPECT_EQ(intValue(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, IntValue,
    ::testing::Values(IntegerCase{"empty", "", 0}, IntegerCase{"number", "1024", 1024},
                      IntegerCase{"letters", "abc", 0}, IntegerCase{"unit", "12px", 12},
                      IntegerCase{"negative", "-5", -5}, IntegerCase{"plus", "+64", 64},
                      IntegerCase{"twoSigns", "+-5", 0}, IntegerCase{"minusPlus", "-+5", 0},
                      IntegerCase{"signAlone", "-", 0}, IntegerCase{"signThenBlank", "- 5", 0},
                      IntegerCase{"blank", " 64", 64}, IntegerCase{"tabAndLine", "\t\n64", 64},
                      IntegerCase{"noBreakSpace", "\u00a064", 64},
                      IntegerCase{"blanksAlone", "   ", 0}, IntegerCase{"decimal", "12.9", 12},
                      IntegerCase{"hexadecimal", "0x10", 0}, IntegerCase{"zeros", "0000", 0},
                      IntegerCase{"exponent", "1e3", 1},
                      IntegerCase{"max", "2147483647", 2147483647},
                      IntegerCase{"aboveMax", "2147483648", 2147483647},
                      IntegerCase{"min", "-2147483648", -2147483647 - 1},
                      IntegerCase{"belowMin", "-2147483649", -2147483647 - 1},
                      IntegerCase{"far", "99999999999", 2147483647},
                      IntegerCase{"farBelow", "-99999999999999999999", -2147483647 - 1},
                      IntegerCase{"farWithPlus", "+99999999999", 2147483647},
                      IntegerCase{"nulInside", std::string("1\0002", 3), 1},
                      IntegerCase{"brokenUTF8",
                                  "\xff"
                                  "5",
                                  0}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tessarine
