#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <map>

#include "tests/headless/program.h"
#include "tests/headless/source_picture.h"

namespace tessarine::testing {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

namespace fs = std::filesystem;

// The names and sizes that a set's folder must hold, from lines such as "Icon-60.png 60x60".
std::map<std::string, std::string> goldenFiles(const std::string& set) {
  std::ifstream stream(fs::path(TESSARINE_SOURCE_DIR) / "tests/iconsets/golden" /
                       (set + "_files.txt"));
  std::map<std::string, std::string> files;
  for (std::string name, size; stream >> name >> size;) files[name] = size;
  return files;
}

std::map<std::string, std::string> pngFiles(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const std::string& name : namesIn(folder)) {
    if (name != "Contents.json") files[name] = sizeOfPNG(folder / name);
  }
  return files;
}

struct Set {
  const char* word;
  const char* golden;
  bool hasCatalogue;
};

const Set sets[]{{"ios", "ios", true},
                 {"macos", "macos", true},
                 {"apple-watch", "apple_watch", true},
                 {"windows10", "windows10", false}};

void expectWhole(const Set& set, const fs::path& folder) {
  EXPECT_EQ(pngFiles(folder), goldenFiles(set.golden));
  ASSERT_EQ(fs::exists(folder / "Contents.json"), set.hasCatalogue);
  if (!set.hasCatalogue) return;
  const fs::path golden = fs::path(TESSARINE_SOURCE_DIR) / "tests/iconsets/golden" /
                          (std::string(set.golden) + "_contents.json");
  EXPECT_EQ(contentsOf(folder / "Contents.json"), contentsOf(golden));
}

class Sets : public ::testing::TestWithParam<Set> {};

}  // namespace

TEST_P(Sets, AreWrittenWholeAndSilently) {
  const SourcePicture source;
  const Outcome outcome = runProgram({GetParam().word, source.picture(), source.icons()});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.output, IsEmpty());
  EXPECT_THAT(outcome.error, IsEmpty());
  expectWhole(GetParam(), source.icons());
  EXPECT_THAT(namesIn(source.root()), ElementsAre("icons", "picture.png"));
}

TEST_P(Sets, ReplaceTheirOwnFilesAndNoOthers) {
  const SourcePicture source;
  const std::vector<std::string> arguments{GetParam().word, source.picture(), source.icons()};
  ASSERT_EQ(runProgram(arguments).status, 0);
  std::map<std::string, std::string> first;
  for (const std::string& name : namesIn(source.icons())) {
    first[name] = contentsOf(source.icons() / name);
    writeFile(source.icons() / name, "something longer or shorter");
  }
  writeFile(source.icons() / "notes.txt", "mine");
  EXPECT_EQ(runProgram(arguments).status, 0);
  first["notes.txt"] = "mine";
  std::map<std::string, std::string> second;
  for (const std::string& name : namesIn(source.icons())) {
    second[name] = contentsOf(source.icons() / name);
  }
  EXPECT_TRUE(first == second);
}

INSTANTIATE_TEST_SUITE_P(Fixed, Sets, ::testing::ValuesIn(sets),
                         [](const auto& row) { return std::string(row.param.golden); });

TEST(AllSets, AreWrittenEachIntoItsOwnFolder) {
  const SourcePicture source;
  const Outcome outcome = runProgram({"all", source.picture(), source.icons().string() + "//"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.output + outcome.error, IsEmpty());
  EXPECT_THAT(namesIn(source.icons()), ElementsAre("apple-watch", "ios", "macos", "windows10"));
  for (const Set& set : sets) expectWhole(set, source.icons() / set.word);
}

TEST(AllSets, StretchAPictureThatIsNotSquare) {
  const SourcePicture source;
  // A bar on the left and a bar at the top, each a tenth of the picture.
  drawPNG(source.picture(), 1000, 500, [](int x, int y) {
    return Pixel{static_cast<std::uint8_t>(x < 100 ? 255 : 0),
                 static_cast<std::uint8_t>(y < 50 ? 255 : 0), 0, 255};
  });
  ASSERT_EQ(runProgram({"all", source.picture(), source.icons()}).status, 0);
  for (const char* file :
       {"ios/iTunesArtwork@2x.png", "macos/Icon-256.png", "apple-watch/AppStore.png",
        "windows10/WideTile.scale-400.png", "windows10/LargeTile.scale-200.png"}) {
    const PNGImage icon = readPNG(source.icons() / file);
    const int x = icon.width / 10;
    const int y = icon.height / 10;
    EXPECT_EQ(icon.at(x * 9 / 10, icon.height / 2), (Pixel{255, 0, 0, 255})) << file;
    EXPECT_EQ(icon.at(x * 11 / 10 + 1, icon.height / 2), (Pixel{0, 0, 0, 255})) << file;
    EXPECT_EQ(icon.at(icon.width / 2, y * 9 / 10), (Pixel{0, 255, 0, 255})) << file;
    EXPECT_EQ(icon.at(icon.width / 2, y * 11 / 10 + 1), (Pixel{0, 0, 0, 255})) << file;
  }
}

TEST(AllSets, TakePathsWithAnyCharacters) {
  const SourcePicture source;
  const fs::path odd = source.root() / "a b's \"\xc3\xa9\xe5\x9b\xbe\"\n-x";
  fs::create_directory(odd);
  fs::rename(source.picture(), odd / "my\n'icon'.png");
  EXPECT_EQ(runProgram({"apple-watch", odd / "my\n'icon'.png", odd / "new/deep er/\n"}).status, 0);
  EXPECT_EQ(namesIn(odd / "new/deep er/\n").size(), 12U);
}

TEST(AllSets, TakeARelativeFolder) {
  const SourcePicture source;
  const Outcome outcome =
      runProgram({"macos", "picture.png", "icons"}, [&] { fs::current_path(source.root()); });
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(namesIn(source.icons()).size(), 11U);
}

}  // namespace tessarine::testing
