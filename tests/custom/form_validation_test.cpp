#include "custom/form_validation.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "custom/validation_rules.h"
#include "tests/support/fake_form.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;

constexpr const char* noFault = "";

class Validation : public ::testing::Test {
 protected:
  // The alert and the focus, or nothing when the form passes.
  std::string judge() {
    host.journal.clear();
    const bool passed = validateForm(host.platform, fields.form);
    std::string outcome;
    for (const std::string& line : host.journal) {
      if (!line.starts_with("read ")) outcome += (outcome.empty() ? "" : " / ") + line;
    }
    EXPECT_EQ(passed, outcome.empty());
    return outcome;
  }

  testing::RecordingPlatform host;
  testing::FakeForm fields{host.journal};
};

// The fault of a row by the lengths of its name, left and right: 0, 1, and 2 or more. Written out
// by hand; "#" stands for the row's number.
constexpr const char* nameAndRight =
    "alert Please type in a name for \"AppIcon0#\" and right \"1024\" text fields and try again. "
    "[OK] / focus name #";
constexpr const char* nameAndLeft =
    "alert Please type in a name for \"AppIcon0#\" and left \"1024\" text fields. [OK] / "
    "focus name #";
constexpr const char* nameAlone =
    "alert Please type in a name for \"AppIcon0#\" text field. [OK] / focus name #";
constexpr const char* leftAndRight =
    "alert Please type in a name for left \"1024\" and right \"1024\" text field. [OK] / "
    "focus left #";
constexpr const char* rightAlone =
    "alert Please type in a name for right \"1024\" text field. [OK] / focus right #";
constexpr const char* leftAlone =
    "alert Please type in a name for left \"1024\" text field. [OK] / focus left #";

struct Expectation {
  std::size_t name, left, right;
  const char* fault;
};

constexpr Expectation laterRows[] = {
    {0, 0, 0, noFault},    {0, 0, 1, noFault}, {0, 0, 2, nameAndLeft},  {0, 1, 0, noFault},
    {0, 1, 1, noFault},    {0, 1, 2, noFault}, {0, 2, 0, nameAndRight}, {0, 2, 1, noFault},
    {0, 2, 2, nameAlone},  {1, 0, 0, noFault}, {1, 0, 1, noFault},      {1, 0, 2, noFault},
    {1, 1, 0, noFault},    {1, 1, 1, noFault}, {1, 1, 2, noFault},      {1, 2, 0, noFault},
    {1, 2, 1, noFault},    {1, 2, 2, noFault}, {2, 0, 0, leftAndRight}, {2, 0, 1, noFault},
    {2, 0, 2, leftAlone},  {2, 1, 0, noFault}, {2, 1, 1, noFault},      {2, 1, 2, noFault},
    {2, 2, 0, rightAlone}, {2, 2, 1, noFault}, {2, 2, 2, noFault},
};

constexpr const char* firstName =
    "alert Please type in a name for \"AppIcon01\" text field and try again. [OK] / focus name 1";
constexpr const char* firstLeft =
    "alert Please type in a name for left pixel \"1024\" text field and try again. [OK] / "
    "focus left 1";
constexpr const char* firstRight =
    "alert Please type in a name for right pixel \"1024\" text field and try again. [OK] / "
    "focus right 1";

constexpr Expectation firstRow[] = {
    {0, 0, 0, firstName},  {0, 0, 1, firstName},  {0, 0, 2, firstName}, {0, 1, 0, firstName},
    {0, 1, 1, firstName},  {0, 1, 2, firstName},  {0, 2, 0, firstName}, {0, 2, 1, firstName},
    {0, 2, 2, firstName},  {1, 0, 0, firstLeft},  {1, 0, 1, firstLeft}, {1, 0, 2, firstLeft},
    {1, 1, 0, firstRight}, {1, 1, 1, noFault},    {1, 1, 2, noFault},   {1, 2, 0, firstRight},
    {1, 2, 1, noFault},    {1, 2, 2, noFault},    {2, 0, 0, firstLeft}, {2, 0, 1, firstLeft},
    {2, 0, 2, firstLeft},  {2, 1, 0, firstRight}, {2, 1, 1, noFault},   {2, 1, 2, noFault},
    {2, 2, 0, firstRight}, {2, 2, 1, noFault},    {2, 2, 2, noFault},
};

testing::RowTexts textsOf(const Expectation& row) {
  const std::array<std::string, 3> ofLength{"", "7", "12"};
  return {ofLength[row.name], ofLength[row.left], ofLength[row.right]};
}

std::string numbered(std::string text, std::size_t row) {
  std::ranges::replace(text, '#', static_cast<char>('0' + row));
  return text;
}

TEST_F(Validation, JudgesEveryFormOfOneRow) {
  static_assert(std::size(firstRow) + 7 * std::size(laterRows) == 216);
  for (const Expectation& expected : firstRow) {
    fields.fill(1, textsOf(expected));
    EXPECT_EQ(judge(), expected.fault) << ::testing::PrintToString(textsOf(expected));
  }
  fields.fill(1, {"ab", "12", "12"});
  for (std::size_t row = 2; row <= 8; ++row) {
    for (const Expectation& expected : laterRows) {
      fields.fill(row, textsOf(expected));
      EXPECT_EQ(judge(), numbered(expected.fault, row))
          << row << ::testing::PrintToString(textsOf(expected));
    }
    fields.fill(row, {"", "", ""});
  }
}

TEST_F(Validation, TellsNoMoreThanTheFirstFault) {
  fields.fill(1, {"ab", "12", "12"});
  fields.fill(3, {"", "12", "12"});
  fields.fill(6, {"ab", "", ""});
  EXPECT_EQ(judge(), numbered(nameAlone, 3));
  fields.fill(1, {"x", "", "12"});
  EXPECT_EQ(judge(), firstLeft);
}

TEST_F(Validation, GoesOnBehindARowWithOneCharacter) {
  fields.fill(1, {"ab", "12", "12"});
  fields.fill(5, {"ab", "7", ""});
  EXPECT_EQ(judge(), noFault);
  fields.fill(8, {"ab", "12", ""});
  EXPECT_EQ(judge(), numbered(rightAlone, 8));
}

TEST_F(Validation, ParsesNothing) {
  fields.fill(1, {"ab", "abc", "-5"});
  fields.fill(2, {"  ", "  ", "  "});
  EXPECT_EQ(judge(), noFault);
}

TEST_F(Validation, CountsUserPerceivedCharacters) {
  fields.fill(1, {"ab", "12", "12"});
  fields.fill(2, {"👩🏽‍🚀", "", ""});
  EXPECT_EQ(judge(), noFault);
  fields.fill(2, {"👩🏽‍🚀👩🏽‍🚀", "", ""});
  EXPECT_EQ(judge(), numbered(leftAndRight, 2));
}

TEST_F(Validation, ReadsTheFieldsOfEachTestInOrderAndStopsAtTheFirstThatDoesNotFit) {
  fields.fill(1, {"ab", "12", "12"});
  fields.fill(2, {"ab", "", ""});
  judge();
  EXPECT_THAT(host.journal,
              ElementsAre("read name 1", "read left 1", "read right 1",  //
                          "read name 2", "read name 2", "read name 2",   //
                          "read name 2", "read left 2", "read right 2",  //
                          "alert Please type in a name for left \"1024\" and right \"1024\" text "
                          "field. [OK]",
                          "focus left 2"));
}

TEST_F(Validation, PassesEveryTestOfEveryRow) {
  fields.fill(1, {"ab", "12", "12"});
  EXPECT_EQ(judge(), noFault);
  // Row 1 reads one field a test. A blank later row reads two fields in its first test, three in
  // its second, two in its third, and stops at the name in the last three.
  EXPECT_EQ(host.journal.size(), 3U + 7U * (2 + 3 + 2 + 1 + 1 + 1));
}

using ValidationDeathTest = Validation;

TEST_F(ValidationDeathTest, StopsSilentlyAtAnUnconnectedOutlet) {
  fields.form.rows[0].name = {};
  EXPECT_EXIT(judge(), ::testing::KilledBySignal(SIGABRT), "^$");
}

}  // namespace
}  // namespace tessarine
