#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/granted_files.h"
#include "platform/posix/process.h"
#include "tests/platform/posix/system_calls.h"
#include "tests/support/in_child.h"
#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

using ::testing::EndsWith;
using ::testing::UnorderedElementsAre;

namespace {

namespace fs = std::filesystem;

// The errors by which a file system refuses files without a name, and to give them one; 0 where it
// does not.
struct FileSystem {
  std::string label;
  int unnamedFileError;
  int linkError;

  friend void PrintTo(const FileSystem& system, std::ostream* stream) { *stream << system.label; }
};

class AtomicWriteTest : public ::testing::TestWithParam<FileSystem> {
 protected:
  AtomicWriteTest() {
    systemCalls.unnamedFileError = GetParam().unnamedFileError;
    systemCalls.linkError = GetParam().linkError;
    files.grant(folder.path());
  }
  ~AtomicWriteTest() override { systemCalls = {}; }

  std::string write(const std::string& text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    return files.writeAtomically(catalogue, {bytes, text.size()}).value_or("");
  }
  fs::perms mode() const { return fs::status(catalogue).permissions(); }

  TemporaryFolder folder;
  const fs::path catalogue = folder.path() / "Contents.json";
  GrantedFiles files;
};

}  // namespace

TEST_P(AtomicWriteTest, LeavesTheFileAlone) {
  EXPECT_EQ(write("{}"), "");
  EXPECT_EQ(contentsOf(catalogue), "{}");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("Contents.json"));
}

TEST_P(AtomicWriteTest, PutsANewFileInThePlaceOfTheOld) {
  writeFile(catalogue, "old");
  fs::create_hard_link(catalogue, folder.path() / "other");
  EXPECT_EQ(write("new"), "");
  EXPECT_EQ(contentsOf(catalogue), "new");
  EXPECT_EQ(contentsOf(folder.path() / "other"), "old");
}

TEST_P(AtomicWriteTest, GivesANewFileTheModeOfAnyNewFile) {
  const mode_t before = ::umask(027);
  EXPECT_EQ(write("{}"), "");
  ::umask(before);
  EXPECT_EQ(mode(), fs::perms(0640));
}

TEST_P(AtomicWriteTest, KeepsTheModeOfTheOldFile) {
  for (const unsigned bits : {0600U, 0444U, 0666U, 0751U}) {
    writeFile(catalogue, "old");
    fs::permissions(catalogue, fs::perms(bits));
    EXPECT_EQ(write("new"), "");
    EXPECT_EQ(mode(), fs::perms(bits));
    fs::remove(catalogue);
  }
}

TEST_P(AtomicWriteTest, DoesNotHandOnSpecialModeBits) {
  writeFile(catalogue, "old");
  fs::permissions(catalogue, fs::perms(04755));
  EXPECT_EQ(write("new"), "");
  EXPECT_EQ(mode(), fs::perms(0755));
}

TEST_P(AtomicWriteTest, LeavesTheFilesOfOthersAlone) {
  writeFile(folder.path() / ".tessarine-1", "another's");
  const std::string before = snapshot(folder.path(), catalogue);
  EXPECT_EQ(write("{}"), "");
  EXPECT_EQ(snapshot(folder.path(), catalogue), before);
}

TEST_P(AtomicWriteTest, IsNotDisturbedByAnotherAtTheSameTime) {
  std::string other = "not reached";
  systemCalls.beforeRename = [&] { other = write("the other"); };
  EXPECT_EQ(write("this one"), "");
  EXPECT_EQ(other, "");
  EXPECT_EQ(contentsOf(catalogue), "this one");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("Contents.json"));
}

TEST_P(AtomicWriteTest, GoesOnWhereTheFileSystemCannotSync) {
  for (const int error : {EINVAL, EROFS, ENOTSUP}) {
    systemCalls.syncError = error;
    EXPECT_EQ(write(std::to_string(error)), "");
    EXPECT_EQ(contentsOf(catalogue), std::to_string(error));
  }
}

TEST_P(AtomicWriteTest, KeepsTheOldFileWhenTheDiskFails) {
  writeFile(catalogue, "old");
  systemCalls.syncError = EIO;
  EXPECT_THAT(write("new"), EndsWith("Input/output error"));
  EXPECT_EQ(contentsOf(catalogue), "old");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("Contents.json"));
}

TEST_P(AtomicWriteTest, GoesOnWithoutProc) {
  if (!isRoot()) GTEST_SKIP() << "only root can change the root folder";
  EXPECT_EQ(inChild([&] {
              if (::chroot(folder.path().c_str()) != 0) return std::string("no other root");
              files.grant("/");
              return files.writeAtomically("//Contents.json", {}).value_or("");
            }),
            "");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("Contents.json"));
}

TEST_P(AtomicWriteTest, KeepsTheOldFileAndNothingElseWhenItFails) {
  writeFile(catalogue, "old");
  const std::string before = snapshot(folder.path());
  const std::string failure = inChild([&] {
    setUpProcess();
    const rlimit tiny{5, 5};
    if (::setrlimit(RLIMIT_FSIZE, &tiny) != 0) return std::string("no limit");
    return write("longer than the limit");
  });
  EXPECT_THAT(failure, EndsWith("could not be written: File too large"));
  EXPECT_EQ(snapshot(folder.path()), before);
}

TEST_P(AtomicWriteTest, WritesIntoASubfolder) {
  fs::create_directory(folder.path() / "sub");
  const std::string text = "{}";
  EXPECT_EQ(files.writeAtomically(folder.path() / "sub/Contents.json",
                                  {reinterpret_cast<const std::uint8_t*>(text.data()), 2}),
            std::nullopt);
  EXPECT_THAT(namesIn(folder.path() / "sub"), UnorderedElementsAre("Contents.json"));
}

INSTANTIATE_TEST_SUITE_P(FileSystems, AtomicWriteTest,
                         ::testing::Values(FileSystem{"withUnnamedFiles", 0, 0},
                                           FileSystem{"withoutUnnamedFiles", EOPNOTSUPP, 0},
                                           FileSystem{"withoutLinks", 0, EPERM},
                                           FileSystem{"withLinksUnsupported", 0, EOPNOTSUPP},
                                           FileSystem{"withUnnamedFilesForGood", 0, ENOENT}),
                         [](const auto& row) { return row.param.label; });

}  // namespace tessarine::testing
