#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "iconsets/apple_watch.h"
#include "iconsets/ios.h"
#include "iconsets/macos.h"
#include "iconsets/windows10.h"

namespace tessarine {
namespace {

std::string golden(const std::string& name) {
  const auto folder = std::filesystem::path(TESSARINE_SOURCE_DIR) / "tests/iconsets/golden";
  std::ifstream file(folder / name, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << name;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string filesOf(const IconSet& set) {
  std::ostringstream list;
  for (const std::string_view name : set.names) {
    const PixelSize size = sizeOf(set, name).value();
    list << name << ".png " << size.width << 'x' << size.height << '\n';
  }
  return list.str();
}

struct TableCase {
  const char* name;
  const IconSet& set;
  std::size_t files;
};

class Tables : public ::testing::TestWithParam<TableCase> {};

TEST_P(Tables, NameTheGoldenFilesInProductionOrder) {
  EXPECT_EQ(filesOf(GetParam().set), golden(std::string(GetParam().name) + "_files.txt"));
  EXPECT_EQ(GetParam().set.names.size(), GetParam().files);
}

TEST_P(Tables, GiveTheGoldenCatalogue) {
  if (!GetParam().set.contentsJSON) {
    EXPECT_STREQ(GetParam().name, "windows10");
    return;
  }
  EXPECT_EQ(*GetParam().set.contentsJSON, golden(std::string(GetParam().name) + "_contents.json"));
}

INSTANTIATE_TEST_SUITE_P(Sets, Tables,
                         ::testing::Values(TableCase{"ios", iOSIconSet, 23},
                                           TableCase{"macos", macOSIconSet, 10},
                                           TableCase{"apple_watch", appleWatchIconSet, 11},
                                           TableCase{"windows10", windows10IconSet, 56}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(IOSTable, KeepsTheNamesThatLookWrong) {
  EXPECT_EQ(iOSIconNames[5], "Icon-Small-40@3x-1");
  EXPECT_EQ(sizeOf(iOSIconSet, "Icon-Small-40@3x-1"), (PixelSize{120, 120}));
  EXPECT_EQ(sizeOf(iOSIconSet, "Icon-60"), (PixelSize{60, 60}));
  EXPECT_EQ(sizeOf(iOSIconSet, "Icon-83.5@2x"), (PixelSize{167, 167}));
}

TEST(MacOSTable, HoldsPairsOfEqualSize) {
  const auto same = [](std::string_view one, std::string_view other) {
    return sizeOf(macOSIconSet, one).value() == sizeOf(macOSIconSet, other).value();
  };
  EXPECT_TRUE(same("Icon-16@2x", "Icon-32"));
  EXPECT_TRUE(same("Icon-256@2x", "Icon-512"));
  EXPECT_TRUE(same("Icon-128@2x", "Icon-256"));
  EXPECT_EQ(macOSIconNames.front(), "Icon-512");
  EXPECT_EQ(macOSIconNames.back(), "Icon-16@2x");
}

const CatalogueEntry& watchEntry(std::string_view filename) {
  return *std::ranges::find(appleWatchCatalogue, filename, &CatalogueEntry::filename);
}

TEST(AppleWatchTable, KeepsTheCrossedLabels) {
  EXPECT_EQ(sizeOf(appleWatchIconSet, "40mm@2x"), (PixelSize{55, 55}));
  EXPECT_EQ(watchEntry("40mm@2x.png").subtype, "42mm");
  EXPECT_EQ(sizeOf(appleWatchIconSet, "42mm@2x"), (PixelSize{88, 88}));
  EXPECT_EQ(watchEntry("42mm@2x.png").subtype, "40mm");
}

TEST(AppleWatchTable, LeavesOutTheKeysThatAnEntryLacks) {
  for (const char* name : {"44mm@2x.png", "44mm@3x.png"}) {
    EXPECT_EQ(watchEntry(name).role, "companionSettings");
    EXPECT_EQ(watchEntry(name).subtype, "");
  }
  const CatalogueEntry& store = watchEntry("AppStore.png");
  EXPECT_EQ(store.idiom, "watch-marketing");
  EXPECT_EQ(store.scale, "1x");
  EXPECT_EQ(store.role, "");
  EXPECT_EQ(store.subtype, "");
  EXPECT_EQ(sizeOf(appleWatchIconSet, "AppStore"), (PixelSize{1024, 1024}));
}

TEST(AppleWatchTable, ListsTheCatalogueInProductionOrder) {
  for (std::size_t i = 0; i < appleWatchCatalogue.size(); ++i) {
    EXPECT_EQ(appleWatchCatalogue[i].filename, std::string(appleWatchIconNames[i]) + ".png");
  }
}

TEST(Windows10Table, IsSquareButForWideTilesAndSplashScreens) {
  for (const IconSize& row : windows10Icons) {
    const bool wide = row.name.starts_with("WideTile") || row.name.starts_with("SplashScreen");
    EXPECT_EQ(row.pixels.width != row.pixels.height, wide) << row.name;
  }
}

TEST(Windows10Table, HasOneLockScreenLogo) {
  const auto isLockScreen = [](const IconSize& row) {
    return row.name.starts_with("LockScreenLogo");
  };
  EXPECT_EQ(std::ranges::count_if(windows10Icons, isLockScreen), 1);
  EXPECT_EQ(sizeOf(windows10IconSet, "LockScreenLogo.scale-200"), (PixelSize{48, 48}));
}

}  // namespace
}  // namespace tessarine
