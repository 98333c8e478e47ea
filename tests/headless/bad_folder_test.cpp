#include <gmock/gmock.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/headless/program.h"
#include "tests/headless/source_picture.h"
#include "tests/support/in_child.h"

namespace tessarine::testing {

using ::testing::AllOf;
using ::testing::Each;
using ::testing::EndsWith;
using ::testing::SizeIs;
using ::testing::StartsWith;

namespace {

namespace fs = std::filesystem;

class BadFolder : public ::testing::Test {
 protected:
  // Cuts the macOS set, 11 files, into `folder`.
  Outcome cut(const fs::path& folder, const std::function<void()>& prepare = {}) {
    return runProgram({"macos", source.picture(), folder}, prepare);
  }
  void expectElevenLines(const Outcome& outcome, const std::string& cause) {
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(linesOf(outcome.output), SizeIs(11));
    EXPECT_THAT(linesOf(outcome.output),
                Each(AllOf(StartsWith("error saving: \""), EndsWith(cause))));
  }

  SourcePicture source;
};

// A mount that ends with the test.
class Mount {
 public:
  Mount(const char* source, const fs::path& target, const char* type, unsigned long flags,
        const char* data)
      : target_(target), mounted_(::mount(source, target.c_str(), type, flags, data) == 0) {}
  ~Mount() {
    if (mounted_) ::umount2(target_.c_str(), MNT_DETACH);
  }
  Mount(const Mount&) = delete;
  Mount& operator=(const Mount&) = delete;

  explicit operator bool() const { return mounted_; }

 private:
  fs::path target_;
  bool mounted_;
};

}  // namespace

TEST_F(BadFolder, ThatIsAFileFailsEveryWrite) {
  writeFile(source.icons(), "a file");
  expectElevenLines(cut(source.icons()), "Not a directory");
  EXPECT_EQ(contentsOf(source.icons()), "a file");
}

TEST_F(BadFolder, BelowAFileFailsEveryWrite) {
  writeFile(source.icons(), "a file");
  expectElevenLines(cut(source.icons() / "below"), "Not a directory");
}

TEST_F(BadFolder, ThatAnOrdinaryUserMayNotWriteFailsEveryWrite) {
  if (!isRoot()) GTEST_SKIP() << "only root can become an ordinary user";
  fs::permissions(source.root(), fs::perms(0755));
  fs::create_directory(source.icons());
  expectElevenLines(cut(source.icons(), becomeOrdinaryUser), "Permission denied");
  EXPECT_TRUE(fs::is_empty(source.icons()));
  expectElevenLines(cut(source.root() / "new", becomeOrdinaryUser), "No such file or directory");
}

TEST_F(BadFolder, OnAReadOnlyMountFailsEveryWrite) {
  fs::create_directory(source.icons());
  const Mount bound(source.icons().c_str(), source.icons(), "none", MS_BIND, nullptr);
  const Mount readOnly("none", source.icons(), "none", MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr);
  if (!bound || !readOnly) GTEST_SKIP() << "this user may not mount";
  expectElevenLines(cut(source.icons()), "Read-only file system");
  EXPECT_TRUE(fs::is_empty(source.icons()));
}

TEST_F(BadFolder, OnAFullDiskLosesOnlyWhatDoesNotFit) {
  fs::create_directory(source.icons());
  const Mount small("none", source.icons(), "tmpfs", 0, "size=64k");
  if (!small) GTEST_SKIP() << "this user may not mount";
  const Outcome outcome = cut(source.icons());
  EXPECT_EQ(outcome.status, 1);
  const auto lines = linesOf(outcome.output);
  EXPECT_THAT(lines, Each(EndsWith("No space left on device")));
  std::size_t whole = 0;
  for (const std::string& name : namesIn(source.icons())) {
    const bool told = outcome.output.find("/" + name + "\"") != std::string::npos;
    if (!told && name != "Contents.json") {
      EXPECT_GT(readPNG(source.icons() / name).width, 0) << name;
    }
    if (!told) ++whole;
  }
  EXPECT_EQ(whole + lines.size(), 11U);
}

}  // namespace tessarine::testing
