#include "platform/posix/granted_files.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include "tests/support/in_child.h"
#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

using ::testing::EndsWith;
using ::testing::Eq;
using ::testing::Optional;

namespace {

namespace fs = std::filesystem;

std::span<const std::uint8_t> bytesIn(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

class GrantedFilesTest : public ::testing::Test {
 protected:
  GrantedFilesTest() { files.grant(folder.path()); }

  std::optional<std::string> inPlace(const std::string& name, std::string_view text) {
    return files.writeInPlace(folder.path().string() + "/" + name, bytesIn(text));
  }

  TemporaryFolder folder;
  GrantedFiles files;
};

}  // namespace

TEST_F(GrantedFilesTest, WritesTheBytesAndNothingElse) {
  EXPECT_EQ(inPlace("a.png", std::string("a\0b\n", 4)), std::nullopt);
  EXPECT_EQ(contentsOf(folder.path() / "a.png"), std::string("a\0b\n", 4));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
}

TEST_F(GrantedFilesTest, WritesAnEmptyFile) {
  EXPECT_EQ(inPlace("a.png", ""), std::nullopt);
  EXPECT_EQ(contentsOf(folder.path() / "a.png"), "");
}

TEST_F(GrantedFilesTest, ReplacesLongerContentsWhole) {
  writeFile(folder.path() / "a.png", "much longer than before");
  EXPECT_EQ(inPlace("a.png", "short"), std::nullopt);
  EXPECT_EQ(contentsOf(folder.path() / "a.png"), "short");
}

TEST_F(GrantedFilesTest, WritesIntoTheFileItself) {
  writeFile(folder.path() / "a.png", "old");
  fs::create_hard_link(folder.path() / "a.png", folder.path() / "other");
  fs::permissions(folder.path() / "a.png", fs::perms(0640));
  EXPECT_EQ(inPlace("a.png", "new"), std::nullopt);
  EXPECT_EQ(contentsOf(folder.path() / "other"), "new");
  EXPECT_EQ(fs::status(folder.path() / "a.png").permissions(), fs::perms(0640));
}

TEST_F(GrantedFilesTest, MakesFilesWithTheModeOfAnyNewFile) {
  const mode_t before = ::umask(027);
  EXPECT_EQ(inPlace("a.png", "x"), std::nullopt);
  ::umask(before);
  EXPECT_EQ(fs::status(folder.path() / "a.png").permissions(), fs::perms(0640));
}

TEST(GrantedFiles, WithoutAGrantRefuseEverything) {
  TemporaryFolder folder;
  GrantedFiles files;
  const std::string path = folder.path() / "x.png";
  EXPECT_THAT(files.writeInPlace(path, bytesIn("x")),
              Optional(Eq("\"" + path +
                          "\" could not be written: not permitted outside the chosen folder")));
  EXPECT_NE(files.writeAtomically(path, bytesIn("x")), std::nullopt);
  EXPECT_NE(files.writeInPlace("/tessarine-none.png", bytesIn("x")), std::nullopt);
  EXPECT_TRUE(fs::is_empty(folder.path()));
  EXPECT_FALSE(fs::exists("/tessarine-none.png"));
}

TEST_F(GrantedFilesTest, RefuseEverythingAfterTheGrantIsRevoked) {
  files.revoke();
  EXPECT_NE(inPlace("x.png", "x"), std::nullopt);
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(GrantedFilesTest, ForgetTheFolderBefore) {
  TemporaryFolder second;
  files.grant(second.path());
  EXPECT_THAT(inPlace("x.png", "x"), Optional(EndsWith("outside the chosen folder")));
  EXPECT_EQ(files.writeInPlace(second.path() / "x.png", bytesIn("x")), std::nullopt);
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(GrantedFilesTest, RefusePathsThatOnlyBeginLikeTheFolder) {
  const fs::path sibling = folder.path().string() + "-sibling";
  fs::create_directory(sibling);
  EXPECT_THAT(files.writeInPlace(sibling / "x.png", bytesIn("x")),
              Optional(EndsWith("outside the chosen folder")));
  EXPECT_TRUE(fs::is_empty(sibling));
  fs::remove(sibling);
}

TEST_F(GrantedFilesTest, RefuseAnotherSpellingOfTheFolder) {
  for (const std::string path : {"x.png", "./x.png", ""}) {
    EXPECT_THAT(files.writeInPlace(path, bytesIn("x")),
                Optional(EndsWith("outside the chosen folder")));
  }
}

TEST(GrantedFiles, TellWhyAFolderWasNotGranted) {
  TemporaryFolder folder;
  GrantedFiles files;
  files.grant(folder.path() / "missing");
  EXPECT_THAT(files.writeInPlace(folder.path() / "missing/x.png", bytesIn("x")),
              Optional(EndsWith("could not be written: No such file or directory")));
  writeFile(folder.path() / "file", "x");
  files.grant(folder.path() / "file");
  EXPECT_THAT(files.writeInPlace(folder.path() / "file/x.png", bytesIn("x")),
              Optional(EndsWith("could not be written: Not a directory")));
  files.grant("");
  EXPECT_NE(files.writeInPlace("/x.png", bytesIn("x")), std::nullopt);
  files.grant(folder.path().string() + std::string("\0x", 2));
  EXPECT_NE(files.writeInPlace(folder.path() / "x.png", bytesIn("x")), std::nullopt);
}

TEST(GrantedFiles, TakeTheRootAsAnyFolder) {
  TemporaryFolder folder;
  GrantedFiles files;
  files.grant("/");
  EXPECT_EQ(files.writeInPlace("/" + folder.path().string() + "/x.png", bytesIn("x")),
            std::nullopt);
  EXPECT_EQ(contentsOf(folder.path() / "x.png"), "x");
}

TEST_F(GrantedFilesTest, KeepToTheFolderThatWasPickedThoughItIsRenamed) {
  const fs::path moved = folder.path() / "moved";
  const fs::path picked = folder.path() / "picked";
  fs::create_directory(picked);
  files.grant(picked);
  fs::rename(picked, moved);
  fs::create_directory(picked);
  EXPECT_EQ(files.writeInPlace(picked / "x.png", bytesIn("x")), std::nullopt);
  EXPECT_TRUE(fs::exists(moved / "x.png"));
  EXPECT_TRUE(fs::is_empty(picked));
}

TEST_F(GrantedFilesTest, FailWhereTheFolderWasDeleted) {
  const fs::path picked = folder.path() / "picked";
  fs::create_directory(picked);
  files.grant(picked);
  fs::remove(picked);
  EXPECT_THAT(files.writeInPlace(picked / "x.png", bytesIn("x")),
              Optional(EndsWith("No such file or directory")));
  EXPECT_FALSE(fs::exists(picked));
}

TEST_F(GrantedFilesTest, TellTheFileAndTheCauseOnOneLine) {
  const std::string path = folder.path().string() + "/missing\n/\x1b[31m\xff\xc3\xa9.png";
  const std::string expected = "\"" + folder.path().string() +
                               "/missing\\n/\\x1b[31m\\xff\xc3\xa9.png\" could not be written: "
                               "No such file or directory";
  EXPECT_THAT(files.writeInPlace(path, bytesIn("x")), Optional(Eq(expected)));
  EXPECT_THAT(files.writeAtomically(path, bytesIn("x")), Optional(Eq(expected)));
}

TEST_F(GrantedFilesTest, TellThatAnOrdinaryUserHasNoRight) {
  if (!isRoot()) GTEST_SKIP() << "only root can give its rights up";
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_THAT(inChild([&] {
                becomeOrdinaryUser();
                return inPlace("x.png", "x").value_or("");
              }),
              EndsWith("Permission denied"));
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(GrantedFilesTest, DoNotFeedAWaitingReader) {
  ASSERT_EQ(::mkfifo((folder.path() / "x.png").c_str(), 0666), 0);
  const Descriptor reader(::open((folder.path() / "x.png").c_str(), O_RDONLY | O_NONBLOCK));
  ASSERT_TRUE(reader);
  EXPECT_THAT(inPlace("x.png", "x"), Optional(EndsWith("not a plain file")));
  char byte = 0;
  EXPECT_EQ(::read(reader.number(), &byte, 1), 0);
}

}  // namespace tessarine::testing
