#include <gmock/gmock.h>

#include <functional>

#include "iconsets/icon_set_generator.h"
#include "iconsets/macos.h"
#include "platform/posix/granted_files.h"
#include "platform/posix/granting_panel.h"
#include "tests/support/recording_platform.h"
#include "tests/support/temporary_folder.h"

// What others do to the chosen folder while a set is being written.
namespace tessarine::testing {

using ::testing::Each;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

namespace fs = std::filesystem;

// Files with something that happens before the sixth of them.
class InterruptedFiles final : public Files {
 public:
  InterruptedFiles(Files& files, std::function<void()> event)
      : files_(files), event_(std::move(event)) {}

  std::optional<std::string> writeInPlace(const std::string& path,
                                          std::span<const std::uint8_t> bytes) override {
    if (++count_ == 6) event_();
    return files_.writeInPlace(path, bytes);
  }
  std::optional<std::string> writeAtomically(const std::string& path,
                                             std::span<const std::uint8_t> bytes) override {
    return files_.writeAtomically(path, bytes);
  }

 private:
  Files& files_;
  std::function<void()> event_;
  int count_ = 0;
};

class ChangedFolderTest : public ::testing::TestWithParam<Resolution> {
 protected:
  ChangedFolderTest() {
    fs::create_directory(picked);
    fs::create_directory(outside);
    recording.pictures.decodable["picture"] = plainPicture({8, 8});
    recording.panel.answer = {PanelResponse::confirmed, picked};
  }

  // Writes the macOS set, 11 files; the lines that it printed.
  std::vector<std::string> runWith(const std::function<void()>& event) {
    GrantedFiles granted(GetParam());
    InterruptedFiles files(granted, event);
    GrantingPanel panel(recording.panel, granted);
    const Platform& fake = recording.platform;
    Platform platform{fake.pictures, files, panel, fake.workspace, fake.console, fake.alert};
    IconInfo iconInfo;
    iconInfo.imageData = bytesOf("picture");
    generateIconSet(platform, iconInfo, macOSIconSet);
    EXPECT_EQ(recording.journal.back(), "reveal '" + picked.string() + "'");
    std::vector<std::string> lines;
    for (const std::string& line : recording.journal) {
      if (line.starts_with("print ")) lines.push_back(line);
    }
    return lines;
  }
  static auto filesIn(const fs::path& folder) {
    return std::distance(fs::directory_iterator(folder), {});
  }

  TemporaryFolder folder;
  const fs::path picked = folder.path() / "picked";
  const fs::path moved = folder.path() / "moved";
  const fs::path outside = folder.path() / "outside";
  RecordingPlatform recording;
};

}  // namespace

TEST_P(ChangedFolderTest, RenamedIsStillTheOnePicked) {
  EXPECT_THAT(runWith([&] { fs::rename(picked, moved); }), IsEmpty());
  EXPECT_EQ(filesIn(moved), 11);
  EXPECT_FALSE(fs::exists(picked));
}

TEST_P(ChangedFolderTest, DeletedFailsTheFilesThatAreLeft) {
  const auto lines = runWith([&] { fs::remove_all(picked); });
  EXPECT_THAT(lines, SizeIs(6));
  EXPECT_THAT(lines, Each(EndsWith("No such file or directory")));
  EXPECT_FALSE(fs::exists(picked));
}

TEST_P(ChangedFolderTest, ReplacedByALinkLeadsNowhereElse) {
  EXPECT_THAT(runWith([&] {
                fs::rename(picked, moved);
                fs::create_symlink(outside, picked);
              }),
              IsEmpty());
  EXPECT_EQ(filesIn(moved), 11);
  EXPECT_TRUE(fs::is_empty(outside));
}

TEST_P(ChangedFolderTest, DeletedAndReplacedByALinkLeadsNowhereElse) {
  EXPECT_THAT(runWith([&] {
                fs::remove_all(picked);
                fs::create_symlink(outside, picked);
              }),
              SizeIs(6));
  EXPECT_TRUE(fs::is_empty(outside));
}

TEST_P(ChangedFolderTest, AFileReplacedByALinkThatLeadsOutIsRefused) {
  writeFile(outside / "secret", "secret");
  const auto lines = runWith([&] {
    for (const char* name : {"Icon-16@2x.png", "Contents.json"}) {
      fs::create_symlink("../outside/secret", picked / name);
    }
  });
  EXPECT_THAT(lines, SizeIs(2));
  EXPECT_THAT(lines, Each(EndsWith("not permitted outside the chosen folder")));
  EXPECT_EQ(contentsOf(outside / "secret"), "secret");
}

INSTANTIATE_TEST_SUITE_P(BothWays, ChangedFolderTest,
                         ::testing::Values(Resolution::kernel, Resolution::walked),
                         [](const auto& row) {
                           return row.param == Resolution::kernel ? "kernel" : "walked";
                         });

}  // namespace tessarine::testing
