#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "tests/headless/program.h"
#include "tests/headless/source_picture.h"
#include "tests/support/memory_limit.h"

namespace tessarine::testing {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

namespace fs = std::filesystem;

class Custom : public ::testing::Test {
 protected:
  Outcome cut(const std::vector<std::string>& rows, const std::function<void()>& prepare = {}) {
    std::vector<std::string> arguments{"custom", source.picture(), source.icons()};
    arguments.insert(arguments.end(), rows.begin(), rows.end());
    return runProgram(arguments, prepare);
  }
  std::string sizeOf(const std::string& name) { return sizeOfPNG(source.icons() / name); }

  SourcePicture source;
};

struct SizeCase {
  std::string label;
  std::string width;
  // Of the file at a height of 16; empty when none is written, and the run incomplete.
  std::string size;
};

class CustomSizes : public Custom, public ::testing::WithParamInterface<SizeCase> {};

}  // namespace

TEST_F(Custom, WritesEveryRow) {
  std::vector<std::string> rows;
  for (const char* name : {"n1", "n2", "n3", "n4", "n5", "n6", "n7", "n8"}) {
    rows.insert(rows.end(), {name, "20", "10"});
  }
  const Outcome outcome = cut(rows);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.output + outcome.error, IsEmpty());
  EXPECT_THAT(namesIn(source.icons()), ElementsAre("n1.png", "n2.png", "n3.png", "n4.png", "n5.png",
                                                   "n6.png", "n7.png", "n8.png"));
  EXPECT_EQ(sizeOf("n8.png"), "20x10");
}

TEST_F(Custom, LetsTheLaterRowOfANameWin) {
  EXPECT_EQ(cut({"Same", "10", "10", "Other", "12", "12", "Same", "30", "40"}).status, 0);
  EXPECT_THAT(namesIn(source.icons()), ElementsAre("Other.png", "Same.png"));
  EXPECT_EQ(sizeOf("Same.png"), "30x40");
}

TEST_F(Custom, IsIncompleteForARowOfOneCharacter) {
  const Outcome outcome = cut({"aa", "10", "10", "b", "10", "10", "cc", "5", "10"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.output + outcome.error, IsEmpty());
  EXPECT_THAT(namesIn(source.icons()), ElementsAre("aa.png"));
}

TEST_F(Custom, IsIncompleteWithoutMemoryForAFile) {
  if (!memoryCanBeLimited()) GTEST_SKIP() << "memory cannot be limited here";
  const Outcome outcome = cut({"huge", "16000", "16000", "good", "10", "10"}, [] {
    // The larger picture alone takes a gigabyte.
    const rlimit limit{rlim_t{800} << 20, rlim_t{800} << 20};
    ::setrlimit(RLIMIT_AS, &limit);
  });
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.output + outcome.error, IsEmpty());
  EXPECT_THAT(namesIn(source.icons()), ElementsAre("good.png"));
}

TEST_F(Custom, ShowsTheAlertOfTheFormAndWritesNothing) {
  const Outcome outcome = cut({"aa", "10", "10", "Big", "", ""});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.output, IsEmpty());
  EXPECT_EQ(outcome.error,
            "Please type in a name for left \"1024\" and right \"1024\" text field.\n");
  EXPECT_FALSE(fs::exists(source.icons()));
}

TEST_F(Custom, KeepsOddNamesInsideTheFolder) {
  fs::create_directories(source.icons() / "sub");
  const Outcome outcome = cut({"..",
                               "10",
                               "10",
                               "sub/../up",
                               "10",
                               "10",
                               "/absolute",
                               "10",
                               "10",
                               "a\nb",
                               "10",
                               "10",
                               "x.png",
                               "10",
                               "10",
                               "  ",
                               "10",
                               "10",
                               "\xc3\xa9\xe5\x9b\xbe",
                               "10",
                               "10",
                               "\"'",
                               "10",
                               "10"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.output, IsEmpty());
  EXPECT_THAT(namesIn(source.icons()),
              ElementsAre("  .png", "\"'.png", "...png", "a\nb.png", "absolute.png", "sub",
                          "up.png", "x.png.png", "\xc3\xa9\xe5\x9b\xbe.png"));
}

TEST_F(Custom, TellsEachHostileNameOnOneLineAndWritesTheOthers) {
  fs::create_directories(source.icons() / "folder.png");
  writeFile(source.root() / "secret", "secret");
  fs::create_symlink("../secret", source.icons() / "link.png");
  ASSERT_EQ(::mkfifo((source.icons() / "fifo.png").c_str(), 0666), 0);
  const Outcome outcome = cut({"../secret", "10",     "10",   "missing/b", "10",
                               "10",        "/etc/x", "10",   "10",        std::string(300, 'n'),
                               "10",        "10",     "link", "10",        "10",
                               "folder",    "10",     "10",   "fifo",      "10",
                               "10",        "good",   "10",   "10"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.error, IsEmpty());
  const auto line = [&](const std::string& name, const std::string& cause) {
    return AllOf(StartsWith("error saving: \"" + source.icons().string() + "/" + name + ".png\""),
                 EndsWith(cause));
  };
  EXPECT_THAT(linesOf(outcome.output),
              ElementsAre(line("../secret", "outside the chosen folder"),
                          line("missing/b", "No such file or directory"),
                          line("/etc/x", "No such file or directory"),
                          line(std::string(300, 'n'), "File name too long"),
                          line("link", "outside the chosen folder"),
                          line("folder", "Is a directory"), line("fifo", "not a plain file")));
  EXPECT_EQ(contentsOf(source.root() / "secret"), "secret");
  EXPECT_THAT(namesIn(source.root()), ElementsAre("icons", "picture.png", "secret"));
  EXPECT_EQ(sizeOf("good.png"), "10x10");
}

TEST_P(CustomSizes, AreReadAsTheFormReadsThem) {
  const Outcome outcome = cut({"sized", GetParam().width, "16", "after", "10", "10"});
  EXPECT_EQ(outcome.status, GetParam().size.empty() ? 1 : 0);
  EXPECT_THAT(outcome.output + outcome.error, IsEmpty());
  EXPECT_TRUE(fs::exists(source.icons() / "after.png"));
  EXPECT_EQ(fs::exists(source.icons() / "sized.png"), !GetParam().size.empty());
  if (!GetParam().size.empty()) {
    EXPECT_EQ(sizeOf("sized.png"), GetParam().size);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Widths, CustomSizes,
    ::testing::Values(SizeCase{"zeros", "0000", ""}, SizeCase{"negative", "-5", ""},
                      SizeCase{"letters", "abc", ""}, SizeCase{"blanks", "  ", ""},
                      SizeCase{"unit", "12px", "12x16"}, SizeCase{"fraction", "16.5", "16x16"},
                      SizeCase{"exponent", "1e2", "1x16"}, SizeCase{"leadingBlank", " 64", "64x16"},
                      SizeCase{"plus", "+64", "64x16"}, SizeCase{"leadingZeros", "0064", "64x16"},
                      SizeCase{"beyond32Bits", "99999999999", ""},
                      SizeCase{"largest", "2147483647", ""},
                      SizeCase{"smallest", "-99999999999", ""}),
    [](const auto& row) { return row.param.label; });

}  // namespace tessarine::testing
