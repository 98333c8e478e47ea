#include "custom/custom_icon_generator.h"

#include <gmock/gmock.h>

#include "tests/support/fake_form.h"
#include "tests/support/memory_limit.h"

namespace tessarine {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::Not;

class CustomIcons : public ::testing::Test {
 protected:
  CustomIcons() {
    iconInfo.imageData = testing::bytesOf("held");
    host.pictures.decodable["held"] = testing::plainPicture({16, 16});
  }

  void run() { generateCustomIcons(host.platform, iconInfo, fields.form); }

  // The journal without the reads of the fields.
  testing::Journal deeds() const {
    testing::Journal lines;
    for (const std::string& line : host.journal) {
      if (!line.starts_with("read ")) lines.push_back(line);
    }
    return lines;
  }

  testing::RecordingPlatform host;
  testing::FakeForm fields{host.journal};
  IconInfo iconInfo;
};

TEST_F(CustomIcons, WritesOneFileForOneRowThenReveals) {
  fields.fill(1, {"Icon", "64", "32"});
  run();
  EXPECT_THAT(deeds(), ElementsAre("ask", "decode held", "write /picked/Icon.png 64x32",
                                   "reveal '/picked'"));
}

TEST_F(CustomIcons, ReadsEachFieldAfreshInOrder) {
  fields.fill(1, {"Icon", "64", "32"});
  run();
  const testing::Journal start(host.journal.begin(), host.journal.begin() + 11);
  EXPECT_THAT(start, ElementsAre("ask", "read name 1", "read left 1", "read right 1", "decode held",
                                 "read left 1", "read right 1", "read name 1",
                                 "write /picked/Icon.png 64x32", "read name 2", "read name 3"));
}

TEST_F(CustomIcons, StopsReadingARowAtTheFirstFieldThatIsTooShort) {
  fields.fill(1, {"Icon", "8", "32"});
  run();
  EXPECT_THAT(host.journal, Contains("read left 1"));
  EXPECT_THAT(host.journal, Not(Contains("read right 1")));
  EXPECT_THAT(deeds(), ElementsAre("ask", "reveal '/picked'"));
}

TEST_F(CustomIcons, WritesAllRowsInOrder) {
  std::vector<std::string> expected;
  for (std::size_t row = 1; row <= 8; ++row) {
    const std::string number = std::to_string(row);
    fields.fill(row, {"Icon" + number, "1" + number, "2" + number});
    expected.push_back("write /picked/Icon" + number + ".png 1" + number + "x2" + number);
  }
  run();
  testing::Journal writes;
  for (const std::string& line : host.journal) {
    if (line.starts_with("write")) writes.push_back(line);
  }
  EXPECT_THAT(writes, ElementsAreArray(expected));
}

TEST_F(CustomIcons, TakesLeftAsWidthAndRightAsHeight) {
  fields.fill(2, {"Big", "1024", "512"});
  run();
  EXPECT_THAT(host.journal, Contains("write /picked/Big.png 1024x512"));
}

struct SkippedRow {
  const char* name;
  testing::RowTexts texts;
};

class SkippedRows : public CustomIcons, public ::testing::WithParamInterface<SkippedRow> {};

TEST_P(SkippedRows, AreLeftOutSilently) {
  fields.fill(3, GetParam().texts);
  run();
  EXPECT_THAT(deeds(), ElementsAre("ask", "reveal '/picked'"));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SkippedRows,
    ::testing::Values(SkippedRow{"blank", {"", "", ""}},
                      SkippedRow{"oneCharacterName", {"a", "64", "64"}},
                      SkippedRow{"oneDigitWidth", {"Icon", "5", "64"}},
                      SkippedRow{"oneDigitHeight", {"Icon", "64", "8"}},
                      SkippedRow{"noHeight", {"Icon", "64", ""}},
                      SkippedRow{"oneFamilyAsName", {"👨‍👩‍👧‍👦", "64", "64"}},
                      SkippedRow{"oneLetterWithAccent", {"e\u0301", "64", "64"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(CustomIcons, NeedNoPictureWhenNoRowQualifies) {
  iconInfo.imageData.reset();
  fields.fill(1, {"a", "64", "64"});
  run();
  EXPECT_THAT(deeds(), ElementsAre("ask", "reveal '/picked'"));
}

struct NamedFile {
  const char* name;
  const char* typed;
  const char* path;
};

class FileNames : public CustomIcons, public ::testing::WithParamInterface<NamedFile> {};

TEST_P(FileNames, AreJoinedAsTyped) {
  fields.fill(1, {GetParam().typed, "16", "16"});
  run();
  EXPECT_THAT(host.journal, Contains(std::string("write ") + GetParam().path + " 16x16"));
}

INSTANTIATE_TEST_SUITE_P(
    Names, FileNames,
    ::testing::Values(NamedFile{"twoBlanks", "  ", "/picked/  .png"},
                      NamedFile{"ownExtension", "icon.png", "/picked/icon.png.png"},
                      NamedFile{"subFolder", "sub/x", "/picked/sub/x.png"},
                      NamedFile{"dots", "..", "/picked/...png"},
                      NamedFile{"upwards", "../x", "/picked/../x.png"},
                      NamedFile{"leadingSlash", "/etc/x", "/picked//etc/x.png"},
                      NamedFile{"trailingSlash", "sub/", "/picked/sub/.png"},
                      NamedFile{"lineFeed", "a\nb", "/picked/a\nb.png"},
                      NamedFile{"nonASCII", "Größe", "/picked/Größe.png"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(CustomIcons, LetTheLaterRowOfTheSameNameWin) {
  fields.fill(1, {"Same", "10", "10"});
  fields.fill(4, {"Same", "40", "30"});
  run();
  ASSERT_EQ(host.files.written.size(), 1U);
  EXPECT_EQ(testing::sizeInHeader(host.files.written.at("/picked/Same.png")), "40x30");
}

struct SizeText {
  const char* name;
  const char* typed;
  const char* size;  // null: no file and no line
};

class SizeTexts : public CustomIcons, public ::testing::WithParamInterface<SizeText> {};

TEST_P(SizeTexts, AreReadAsIntegers) {
  fields.fill(2, {"Icon", GetParam().typed, "16"});
  run();
  testing::Journal expected{"ask", "decode held", "reveal '/picked'"};
  if (GetParam().size != nullptr) {
    expected.insert(expected.begin() + 2,
                    std::string("write /picked/Icon.png ") + GetParam().size + "x16");
  }
  EXPECT_THAT(deeds(), ElementsAreArray(expected));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SizeTexts,
    ::testing::Values(SizeText{"letters", "abc", nullptr}, SizeText{"negative", "-5", nullptr},
                      SizeText{"zeros", "0000", nullptr},
                      SizeText{"largest", "2147483647", nullptr},
                      SizeText{"beyond32Bits", "99999999999", nullptr},
                      SizeText{"blankThenNumber", " 64", "64"}, SizeText{"plus", "+64", "64"},
                      SizeText{"unit", "12px", "12"}, SizeText{"leadingZeros", "007", "7"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(CustomIcons, RunOnAfterACancelledPanel) {
  host.panel.answer = {PanelResponse::cancelled, "/left/behind"};
  host.files.allFail = true;
  fields.fill(1, {"One", "10", "10"});
  fields.fill(7, {"Two", "20", "20"});
  run();
  EXPECT_THAT(deeds(), ElementsAre("ask", "decode held", "write /One.png 10x10",
                                   "print error saving: /One.png: refused", "decode held",
                                   "write /Two.png 20x20", "print error saving: /Two.png: refused",
                                   "reveal ''"));
}

TEST_F(CustomIcons, RunOnAfterAFailedWrite) {
  host.files.failing = {"/picked/One.png"};
  fields.fill(1, {"One", "10", "10"});
  fields.fill(2, {"Two", "20", "20"});
  run();
  EXPECT_TRUE(host.files.written.contains("/picked/Two.png"));
  EXPECT_EQ(host.journal.back(), "reveal '/picked'");
}

using CustomIconsDeathTest = CustomIcons;

TEST_F(CustomIconsDeathTest, StopSilentlyAtTheFirstQualifyingRowWithoutAPicture) {
  iconInfo.imageData.reset();
  fields.fill(8, {"Icon", "64", "64"});
  EXPECT_EXIT(run(), ::testing::KilledBySignal(SIGABRT), "^$");
}

TEST_F(CustomIconsDeathTest, StopSilentlyAtAnUnconnectedOutlet) {
  fields.form.rows[7].name = {};
  EXPECT_EXIT(run(), ::testing::KilledBySignal(SIGABRT), "^$");
}

TEST_F(CustomIconsDeathTest, StopSilentlyWhenThereIsNoMemoryToScale) {
  if (!testing::memoryCanBeLimited()) GTEST_SKIP() << "memory cannot be limited";
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  // So narrow an icon is scaled by way of a picture of two megabytes.
  host.pictures.decodable["held"] = testing::plainPicture({512, 16'000});
  fields.fill(1, {"Narrow", "01", "16000"});
  const auto runWithin = [this](std::size_t bytes) {
    testing::leaveMemory(bytes);
    run();
  };
  EXPECT_EXIT(runWithin(1 << 20), ::testing::KilledBySignal(SIGABRT), "^$");
}

}  // namespace
}  // namespace tessarine
