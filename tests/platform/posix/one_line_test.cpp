#include "platform/posix/one_line.h"

#include <gtest/gtest.h>

namespace tessarine::testing {

namespace {

struct Row {
  const char* label;
  std::string text;
  std::string line;
};

class OneLine : public ::testing::TestWithParam<Row> {};

}  // namespace

TEST_P(OneLine, EscapesWhatBreaksALine) {
  EXPECT_EQ(oneLine(GetParam().text), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, OneLine,
    ::testing::Values(
        Row{"empty", "", ""}, Row{"plain", "Icon-60@2x.png", "Icon-60@2x.png"},
        Row{"quotes", "\"it's\"", "\"it's\""},
        Row{"letters", "\xc3\xa9\xe5\x9b\xbe", "\xc3\xa9\xe5\x9b\xbe"},
        Row{"emoji", "\xf0\x9f\x8d\x8e", "\xf0\x9f\x8d\x8e"}, Row{"newline", "a\nb", "a\\nb"},
        Row{"carriageReturn", "a\rb", "a\\rb"}, Row{"tab", "a\tb", "a\\tb"},
        Row{"nul", std::string("a\0b", 3), "a\\x00b"}, Row{"escape", "\x1b[31m", "\\x1b[31m"},
        Row{"delete", "\x7f", "\\x7f"}, Row{"backslash", "a\\nb", "a\\\\nb"},
        Row{"nextLine", "\xc2\x85", "\\xc2\\x85"}, Row{"noBreakSpace", "\xc2\xa0", "\xc2\xa0"},
        Row{"lineSeparator", "\xe2\x80\xa8", "\\xe2\\x80\\xa8"},
        Row{"paragraphSeparator", "\xe2\x80\xa9", "\\xe2\\x80\\xa9"},
        Row{"loneContinuation", "\x80", "\\x80"}, Row{"cutShort", "a\xe5\x9b", "a\\xe5\\x9b"},
        Row{"cutShortInside", "\xe5\x9b!", "\\xe5\\x9b!"},
        Row{"overlong", "\xc0\xaf", "\\xc0\\xaf"},
        Row{"overlongThree", "\xe0\x80\xaf", "\\xe0\\x80\\xaf"},
        Row{"surrogate", "\xed\xa0\x80", "\\xed\\xa0\\x80"},
        Row{"beyondUnicode", "\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},
        Row{"noLead", "\xff\xfe", "\\xff\\xfe"}),
    [](const auto& row) { return row.param.label; });

}  // namespace tessarine::testing
