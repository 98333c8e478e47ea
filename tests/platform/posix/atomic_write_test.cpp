#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "platform/posix/granted_files.h"
#include "platform/posix/process.h"
#include "tests/support/in_child.h"
#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

using ::testing::EndsWith;
using ::testing::UnorderedElementsAre;

namespace {

namespace fs = std::filesystem;

std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename());
  }
  return names;
}

class AtomicWriteTest : public ::testing::Test {
 protected:
  AtomicWriteTest() { files.grant(folder.path()); }

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

TEST_F(AtomicWriteTest, LeavesTheFileAlone) {
  EXPECT_EQ(write("{}"), "");
  EXPECT_EQ(contentsOf(catalogue), "{}");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("Contents.json"));
}

TEST_F(AtomicWriteTest, PutsANewFileInThePlaceOfTheOld) {
  writeFile(catalogue, "old");
  fs::create_hard_link(catalogue, folder.path() / "other");
  EXPECT_EQ(write("new"), "");
  EXPECT_EQ(contentsOf(catalogue), "new");
  EXPECT_EQ(contentsOf(folder.path() / "other"), "old");
}

TEST_F(AtomicWriteTest, GivesANewFileTheModeOfAnyNewFile) {
  const mode_t before = ::umask(027);
  EXPECT_EQ(write("{}"), "");
  ::umask(before);
  EXPECT_EQ(mode(), fs::perms(0640));
}

TEST_F(AtomicWriteTest, KeepsTheModeOfTheOldFile) {
  for (const unsigned bits : {0600U, 0444U, 0666U, 0751U}) {
    writeFile(catalogue, "old");
    fs::permissions(catalogue, fs::perms(bits));
    EXPECT_EQ(write("new"), "");
    EXPECT_EQ(mode(), fs::perms(bits));
    fs::remove(catalogue);
  }
}

TEST_F(AtomicWriteTest, DoesNotHandOnSpecialModeBits) {
  writeFile(catalogue, "old");
  fs::permissions(catalogue, fs::perms(04755));
  EXPECT_EQ(write("new"), "");
  EXPECT_EQ(mode(), fs::perms(0755));
}

TEST_F(AtomicWriteTest, TakesOverWhatAKilledRunLeft) {
  writeFile(folder.path() / ".tessarine-new", "half of a");
  EXPECT_EQ(write("{}"), "");
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("Contents.json"));
}

TEST_F(AtomicWriteTest, DoesNotFollowALinkInThePlaceOfTheTemporaryFile) {
  TemporaryFolder outside;
  writeFile(outside.path() / "secret", "secret");
  fs::create_symlink(outside.path() / "secret", folder.path() / ".tessarine-new");
  EXPECT_EQ(write("{}"), "");
  EXPECT_EQ(contentsOf(outside.path() / "secret"), "secret");
  EXPECT_FALSE(fs::is_symlink(catalogue));
}

TEST_F(AtomicWriteTest, FailsWhereAFolderHasTheTemporaryName) {
  fs::create_directory(folder.path() / ".tessarine-new");
  EXPECT_THAT(write("{}"), EndsWith("Is a directory"));
  EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre(".tessarine-new"));
}

TEST_F(AtomicWriteTest, KeepsTheOldFileAndNothingElseWhenItFails) {
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

TEST_F(AtomicWriteTest, WritesIntoASubfolder) {
  fs::create_directory(folder.path() / "sub");
  const std::string text = "{}";
  EXPECT_EQ(files.writeAtomically(folder.path() / "sub/Contents.json",
                                  {reinterpret_cast<const std::uint8_t*>(text.data()), 2}),
            std::nullopt);
  EXPECT_THAT(namesIn(folder.path() / "sub"), UnorderedElementsAre("Contents.json"));
}

}  // namespace tessarine::testing
