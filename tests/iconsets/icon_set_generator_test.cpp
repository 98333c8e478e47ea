#include "iconsets/icon_set_generator.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>

#include "iconsets/apple_watch.h"
#include "iconsets/ios.h"
#include "iconsets/macos.h"
#include "iconsets/windows10.h"
#include "platform/posix/granted_files.h"
#include "tests/support/memory_limit.h"
#include "tests/support/recording_platform.h"
#include "tests/support/telling_panel.h"
#include "tests/support/temporary_folder.h"

namespace tessarine {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::Pair;
using ::testing::StrEq;

struct SetCase {
  const char* name;
  const IconSet& set;
};

std::string sizeText(const IconSet& set, std::string_view name) {
  const PixelSize size = sizeOf(set, name).value();
  return std::to_string(size.width) + "x" + std::to_string(size.height);
}

class EverySet : public ::testing::TestWithParam<SetCase> {
 protected:
  EverySet() {
    iconInfo.imageData = testing::bytesOf("held");
    host.pictures.decodable["held"] = testing::plainPicture({100, 50});
  }

  // What a run calls, in order, when it writes below `folder`.
  testing::Journal expectedJournal(const std::string& folder, bool writesFail) const {
    testing::Journal journal{"ask"};
    const auto write = [&](const std::string& line, const std::string& path) {
      journal.push_back(line);
      if (writesFail) journal.push_back("print error saving: " + path + ": refused");
    };
    for (const std::string_view name : set.names) {
      journal.push_back("decode held");
      const std::string path = folder + "/" + std::string(name) + ".png";
      write("write " + path + " " + sizeText(set, name), path);
    }
    const std::string catalogue = folder + "/Contents.json";
    if (set.contentsJSON) write("replace " + catalogue, catalogue);
    journal.push_back("reveal '" + folder + "'");
    return journal;
  }

  const IconSet& set = GetParam().set;
  testing::RecordingPlatform host;
  IconInfo iconInfo;
};

TEST_P(EverySet, AsksThenDecodesScalesAndWritesEachNameThenTheCatalogueThenReveals) {
  generateIconSet(host.platform, iconInfo, set);
  EXPECT_THAT(host.journal, ElementsAreArray(expectedJournal("/picked", false)));
}

TEST_P(EverySet, WritesExactlyItsFiles) {
  generateIconSet(host.platform, iconInfo, set);
  EXPECT_EQ(host.files.written.size(), set.names.size() + (set.contentsJSON ? 1 : 0));
  if (set.contentsJSON) {
    EXPECT_EQ(host.files.written.at("/picked/Contents.json"), *set.contentsJSON);
  }
}

TEST_P(EverySet, RunsOnAfterACancelledPanel) {
  host.panel.answer = {PanelResponse::cancelled, "/left/behind"};
  host.files.allFail = true;
  generateIconSet(host.platform, iconInfo, set);
  EXPECT_THAT(host.journal, ElementsAreArray(expectedJournal("", true)));
}

TEST_P(EverySet, RunsOnAfterOneFailedWrite) {
  const std::string second = "/picked/" + std::string(set.names[1]) + ".png";
  host.files.failing = {second};
  generateIconSet(host.platform, iconInfo, set);
  EXPECT_EQ(std::ranges::count(host.journal, "print error saving: " + second + ": refused"), 1);
  EXPECT_EQ(host.files.written.size(), set.names.size() - (set.contentsJSON ? 0 : 1));
  EXPECT_EQ(host.journal.back(), "reveal '/picked'");
}

TEST_P(EverySet, ReplacesTheSameFilesInASecondRun) {
  generateIconSet(host.platform, iconInfo, set);
  const auto first = host.files.written;
  host.files.written["/picked/other.txt"] = "kept";
  generateIconSet(host.platform, iconInfo, set);
  auto expected = first;
  expected["/picked/other.txt"] = "kept";
  EXPECT_EQ(host.files.written, expected);
}

TEST_P(EverySet, UsesThePictureHeldAtTheMoment) {
  generateIconSet(host.platform, iconInfo, set);
  const auto before = host.files.written;
  host.pictures.decodable["other"] = testing::plainPicture({8, 8}, {200, 100, 50, 255});
  iconInfo.imageData = testing::bytesOf("other");
  generateIconSet(host.platform, iconInfo, set);
  EXPECT_NE(host.files.written, before);
}

using EverySetDeathTest = EverySet;

TEST_P(EverySetDeathTest, StopsSilentlyWithoutAPicture) {
  iconInfo.imageData.reset();
  EXPECT_EXIT(generateIconSet(host.platform, iconInfo, set), ::testing::KilledBySignal(SIGABRT),
              StrEq(""));
}

TEST_P(EverySetDeathTest, StopsSilentlyOnBytesThatDoNotDecode) {
  host.pictures.decodable.clear();
  EXPECT_EXIT(generateIconSet(host.platform, iconInfo, set), ::testing::KilledBySignal(SIGABRT),
              StrEq(""));
}

const auto sets = ::testing::Values(SetCase{"iOS", iOSIconSet}, SetCase{"macOS", macOSIconSet},
                                    SetCase{"AppleWatch", appleWatchIconSet},
                                    SetCase{"Windows10", windows10IconSet});

std::string nameOf(const ::testing::TestParamInfo<SetCase>& row) {
  return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(Sets, EverySet, sets, nameOf);
INSTANTIATE_TEST_SUITE_P(Sets, EverySetDeathTest, sets, nameOf);

TEST(IconSetGenerator, WritesANameWithoutASizeAtThePicturesOwnSize) {
  testing::RecordingPlatform host;
  host.pictures.decodable["held"] = testing::plainPicture({31, 17});
  IconInfo iconInfo;
  iconInfo.imageData = testing::bytesOf("held");
  const std::array<std::string_view, 2> names{"sized", "unsized"};
  const std::array<IconSize, 1> sizes{{{"sized", {5, 6}}}};
  generateIconSet(host.platform, iconInfo, {names, sizes, std::nullopt});
  EXPECT_THAT(host.journal, Contains("write /picked/sized.png 5x6"));
  EXPECT_THAT(host.journal, Contains("write /picked/unsized.png 31x17"));
}

TEST(IconSetGenerator, SkipsSilentlyAPictureWithoutABitmap) {
  testing::RecordingPlatform host;
  host.pictures.decodable["held"] = Picture{{10, 10}, std::nullopt};
  IconInfo iconInfo;
  iconInfo.imageData = testing::bytesOf("held");
  const std::array<std::string_view, 2> names{"unsized", "flat"};
  const std::array<IconSize, 1> sizes{{{"flat", {5, 0}}}};
  generateIconSet(host.platform, iconInfo, {names, sizes, std::nullopt});
  EXPECT_THAT(host.journal, ElementsAre("ask", "decode held", "decode held", "reveal '/picked'"));
}

TEST(IconSetGenerator, AsksTheQuestionBeforeItMissesThePicture) {
  testing::RecordingPlatform host;
  const auto run = [&host] {
    testing::TellingPanel panel;
    Platform platform{host.pictures,         host.files,         panel, host.platform.workspace,
                      host.platform.console, host.platform.alert};
    generateIconSet(platform, IconInfo(), macOSIconSet);
  };
  EXPECT_EXIT(run(), ::testing::KilledBySignal(SIGABRT), StrEq("asked\n"));
}

TEST(IconSetGeneratorDeathTest, KeepsTheFilesOfThePassesBeforeTheOneThatStops) {
  const testing::TemporaryFolder folder;
  testing::RecordingPlatform host;
  host.panel.answer = {PanelResponse::confirmed, folder.path()};
  host.pictures.decodable["held"] = testing::plainPicture({8, 8});
  host.pictures.decodings = 2;
  IconInfo iconInfo;
  iconInfo.imageData = testing::bytesOf("held");
  GrantedFiles files;
  files.grant(folder.path());
  Platform platform{
      host.pictures,      files, host.panel, host.platform.workspace, host.platform.console,
      host.platform.alert};
  EXPECT_EXIT(generateIconSet(platform, iconInfo, macOSIconSet), ::testing::KilledBySignal(SIGABRT),
              StrEq(""));
  std::map<std::string, std::string> written;
  for (const std::string& name : testing::namesIn(folder.path())) {
    written[name] = testing::sizeInHeader(testing::contentsOf(folder.path() / name));
  }
  EXPECT_THAT(written,
              ElementsAre(Pair("Icon-512.png", "512x512"), Pair("Icon-512@2x.png", "1024x1024")));
}

TEST(IconSetGeneratorDeathTest, StopsSilentlyWhenThereIsNoMemoryToScale) {
  if (!testing::memoryCanBeLimited()) GTEST_SKIP() << "memory cannot be limited";
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto run = [] {
    testing::RecordingPlatform host;
    // So narrow an icon is scaled by way of a picture of two megabytes.
    host.pictures.decodable["held"] = testing::plainPicture({512, 16'000});
    IconInfo iconInfo;
    iconInfo.imageData = testing::bytesOf("held");
    const std::array<std::string_view, 1> names{"narrow"};
    const std::array<IconSize, 1> sizes{{{"narrow", {1, 16'000}}}};
    testing::leaveMemory(1 << 20);
    generateIconSet(host.platform, iconInfo, {names, sizes, std::nullopt});
  };
  EXPECT_EXIT(run(), ::testing::KilledBySignal(SIGABRT), StrEq(""));
}

TEST(SizeOf, ComparesWholeNamesExactlyAndTakesTheFirstRow) {
  const std::array<std::string_view, 0> names{};
  const std::array<IconSize, 3> sizes{{{"Icon", {1, 1}}, {"Icon", {2, 2}}, {"Icon-60", {3, 3}}}};
  const IconSet set{names, sizes, std::nullopt};
  EXPECT_EQ(sizeOf(set, "Icon"), (PixelSize{1, 1}));
  EXPECT_EQ(sizeOf(set, "Icon-60"), (PixelSize{3, 3}));
  EXPECT_EQ(sizeOf(set, "icon"), std::nullopt);
  EXPECT_EQ(sizeOf(set, "Icon-6"), std::nullopt);
  EXPECT_EQ(sizeOf(set, ""), std::nullopt);
}

}  // namespace
}  // namespace tessarine
