#include "headless/command_line.h"

#include <gmock/gmock.h>

#include "iconsets/macos.h"
#include "iconsets/windows10.h"

namespace tessarine::testing {

using ::testing::ElementsAre;
using ::testing::FieldsAre;
using ::testing::SizeIs;
using ::testing::StartsWith;
using ::testing::VariantWith;

namespace {

Command parsed(const std::vector<std::string_view>& arguments) {
  return parseCommandLine(arguments);
}

std::vector<std::string_view> customWith(std::size_t rows) {
  std::vector<std::string_view> arguments{"custom", "p", "f"};
  for (std::size_t i = 0; i < rows; ++i) {
    arguments.insert(arguments.end(), {"name", "64", "32"});
  }
  return arguments;
}

auto isWrong(const std::string& reason) {
  return VariantWith<WrongUsage>(FieldsAre(StartsWith(reason)));
}

}  // namespace

TEST(CommandLine, OfOneSetNamesItsFolder) {
  EXPECT_THAT(parsed({"macos", "a.png", "icons"}),
              VariantWith<CutSets>(
                  FieldsAre("a.png", "icons", ElementsAre(FieldsAre("icons", &macOSIconSet)))));
}

TEST(CommandLine, OfAllSetsNamesAFolderForEach) {
  const Command command = parsed({"all", "a.png", "icons"});
  ASSERT_TRUE(std::holds_alternative<CutSets>(command));
  const CutSets& sets = std::get<CutSets>(command);
  EXPECT_EQ(sets.folder, "icons");
  ASSERT_THAT(sets.targets, SizeIs(4));
  EXPECT_EQ(sets.targets[1].folder, "icons/macos");
  EXPECT_EQ(sets.targets[3].folder, "icons/windows10");
  EXPECT_EQ(sets.targets[3].set, &windows10IconSet);
}

TEST(CommandLine, DropsSeparatorsAtTheEndOfAFolder) {
  for (const auto& [given, kept] : std::vector<std::pair<std::string_view, std::string>>{
           {"icons/", "icons"}, {"a//b///", "a//b"}, {"/", "/"}, {"///", "/"}}) {
    EXPECT_EQ(std::get<CutSets>(parsed({"ios", "p", given})).folder, kept);
    EXPECT_EQ(std::get<CutCustom>(parsed({"custom", "p", given, "n", "1", "1"})).folder, kept);
  }
}

TEST(CommandLine, RefusesAnEmptyPictureOrFolder) {
  EXPECT_THAT(parsed({"ios", "", "f"}), isWrong("no picture is named"));
  EXPECT_THAT(parsed({"custom", "", "f", "n", "1", "1"}), isWrong("no picture is named"));
  EXPECT_THAT(parsed({"all", "p", ""}), isWrong("no folder is named"));
  EXPECT_THAT(parsed({"custom", "p", "", "n", "1", "1"}), isWrong("no folder is named"));
}

TEST(CommandLine, KeepsTheRowsOfCustomAsTyped) {
  EXPECT_THAT(parsed({"custom", "a.png", "icons", " x/", "", "12px", "--help", "-1", "0"}),
              VariantWith<CutCustom>(FieldsAre(
                  "a.png", "icons",
                  ElementsAre(FieldsAre(" x/", "", "12px"), FieldsAre("--help", "-1", "0")))));
}

TEST(CommandLine, TakesAsManyRowsAsTheForm) {
  EXPECT_THAT(std::get<CutCustom>(parsed(customWith(8))).rows, SizeIs(8));
  EXPECT_THAT(parsed(customWith(9)), isWrong("custom takes"));
  EXPECT_THAT(parsed(customWith(0)), isWrong("custom takes"));
}

TEST(CommandLine, TakesNoPartOfARow) {
  for (std::size_t missing = 1; missing <= 2; ++missing) {
    std::vector<std::string_view> arguments = customWith(2);
    arguments.resize(arguments.size() - missing);
    EXPECT_THAT(parsed(arguments), isWrong("custom takes"));
  }
}

TEST(CommandLine, AsksForHelpOrTheVersionWhateverFollows) {
  EXPECT_THAT(parsed({"--help", "ios"}), VariantWith<ShowHelp>(::testing::_));
  EXPECT_THAT(parsed({"--version"}), VariantWith<ShowVersion>(::testing::_));
}

TEST(CommandLine, SaysWhatIsWrong) {
  EXPECT_THAT(parsed({}), isWrong("no set is named"));
  EXPECT_THAT(parsed({""}), isWrong("there is no set of the name \"\""));
  EXPECT_THAT(parsed({"iOS", "p", "f"}), isWrong("there is no set of the name \"iOS\""));
  EXPECT_THAT(parsed({"ios", "p"}), isWrong("ios takes PICTURE FOLDER"));
  EXPECT_THAT(parsed({"all", "p", "f", "x"}), isWrong("all takes PICTURE FOLDER"));
}

}  // namespace tessarine::testing
