#include <gmock/gmock.h>
#include <sys/stat.h>

#include "tests/headless/program.h"
#include "tests/headless/source_picture.h"

namespace tessarine::testing {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

namespace {

namespace fs = std::filesystem;

struct Usage {
  std::string label;
  std::vector<std::string> arguments;
  std::string reason;
};

class WrongUsage : public ::testing::TestWithParam<Usage> {};

std::vector<std::string> customRows(int rows) {
  std::vector<std::string> arguments{"custom", "picture", "folder"};
  for (int i = 0; i < rows; ++i) arguments.insert(arguments.end(), {"name", "64", "64"});
  return arguments;
}

struct BadPicture {
  std::string label;
  std::function<void(const std::string& path)> make;
};

class BadPictures : public ::testing::TestWithParam<BadPicture> {};

auto holding(const std::string& contents) {
  return [=](const std::string& path) { writeFile(path, contents); };
}

void cutShort(const std::string& path) {
  drawPNG(path, 64, 64, [](int x, int y) { return Pixel{std::uint8_t(x * y), 0, 0, 255}; });
  fs::resize_file(path, fs::file_size(path) / 2);
}

// The header of a picture of 60,000 x 60,000 pixels.
std::string absurdlyLarge() {
  using namespace std::string_literals;
  return "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\xea\x60\0\0\xea\x60\x08\x06\0\0\0\xc7\xb0\x5e\xd5"s;
}

}  // namespace

TEST_P(WrongUsage, IsToldOnOneLine) {
  const Outcome outcome = runProgram(GetParam().arguments);
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.output, IsEmpty());
  EXPECT_THAT(linesOf(outcome.error), SizeIs(1));
  EXPECT_THAT(outcome.error, StartsWith("tessarine-headless: "));
  EXPECT_THAT(outcome.error, HasSubstr(GetParam().reason));
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, WrongUsage,
    ::testing::Values(
        Usage{"nothing", {}, "no set is named"},
        Usage{"unknownSet", {"android", "p", "f"}, "there is no set of the name \"android\""},
        Usage{"oddWord", {"a\nb\x1b", "p", "f"}, "\"a\\nb\\x1b\""},
        Usage{"unknownOption", {"--verbose"}, "--verbose"},
        Usage{"noPicture", {"ios"}, "ios takes PICTURE FOLDER"},
        Usage{"noFolder", {"all", "p"}, "all takes PICTURE FOLDER"},
        Usage{"tooMuch", {"ios", "p", "f", "x"}, "ios takes PICTURE FOLDER"},
        Usage{"emptyPicture", {"ios", "", "f"}, "no picture is named"},
        Usage{"emptyFolder", {"all", "p", ""}, "no folder is named"},
        Usage{"noRow", {"custom", "p", "f"}, "1 to 8 times NAME WIDTH HEIGHT"},
        Usage{"noCustomFolder", {"custom", "p"}, "1 to 8 times NAME WIDTH HEIGHT"},
        Usage{"rowCutShort", {"custom", "p", "f", "name", "64"}, "1 to 8 times NAME WIDTH HEIGHT"},
        Usage{"nineRows", customRows(9), "1 to 8 times NAME WIDTH HEIGHT"}),
    [](const auto& row) { return row.param.label; });

TEST_P(BadPictures, AreRefusedWithNothingWritten) {
  const TemporaryFolder folder;
  const std::string picture = folder.path() / "bad.png";
  GetParam().make(picture);
  const std::string before = snapshot(folder.path());
  const std::string icons = folder.path() / "icons";
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"all", picture, icons},
        std::vector<std::string>{"custom", picture, icons, "name", "64", "64"}}) {
    const Outcome outcome = runProgram(arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.output, IsEmpty());
    EXPECT_THAT(linesOf(outcome.error), SizeIs(1));
    EXPECT_THAT(outcome.error,
                StartsWith("tessarine-headless: cannot read the picture \"" + picture + "\": "));
    // By its decoder, and not because it crashed or was stopped.
    EXPECT_THAT(outcome.error, Not(HasSubstr("its decoder")));
  }
  EXPECT_EQ(snapshot(folder.path()), before);
}

INSTANTIATE_TEST_SUITE_P(
    Pictures, BadPictures,
    ::testing::Values(
        BadPicture{"missing", [](const std::string&) {}}, BadPicture{"empty", holding("")},
        BadPicture{"text", holding("not a picture\n")}, BadPicture{"cutShort", cutShort},
        BadPicture{"headerAlone", holding("\x89PNG\r\n\x1a\n")},
        BadPicture{"absurdlyLarge", holding(absurdlyLarge())},
        BadPicture{"folder", [](const std::string& path) { fs::create_directory(path); }},
        BadPicture{"fifo", [](const std::string& path) { ::mkfifo(path.c_str(), 0666); }},
        BadPicture{"danglingLink",
                   [](const std::string& path) { fs::create_symlink("none", path); }},
        BadPicture{"linkToADevice",
                   [](const std::string& path) { fs::create_symlink("/dev/zero", path); }}),
    [](const auto& row) { return row.param.label; });

TEST(Options, AreAnswered) {
  const Outcome help = runProgram({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, StartsWith("Usage: tessarine-headless SET PICTURE FOLDER\n"));
  EXPECT_THAT(help.error, IsEmpty());
  const Outcome version = runProgram({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.output, "tessarine-headless " TESSARINE_VERSION "\n");
}

}  // namespace tessarine::testing
