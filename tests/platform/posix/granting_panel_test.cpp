#include "platform/posix/granting_panel.h"

#include <gmock/gmock.h>

#include "iconsets/icon_set_generator.h"
#include "iconsets/ios.h"
#include "tests/support/recording_platform.h"
#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

namespace {

namespace fs = std::filesystem;

class GrantingPanelTest : public ::testing::Test {
 protected:
  GrantingPanelTest() { recording.pictures.decodable["picture"] = plainPicture({8, 8}); }

  // One run of the iOS set with the answer given; the lines that it printed.
  std::vector<std::string> run(const OpenPanelAnswer& answer) {
    recording.panel.answer = answer;
    recording.journal.clear();
    Platform platform = recording.platform;
    Platform granting{platform.pictures, files,         panel, platform.workspace,
                      platform.console,  platform.alert};
    IconInfo iconInfo;
    iconInfo.imageData = bytesOf("picture");
    generateIconSet(granting, iconInfo, iOSIconSet);
    std::vector<std::string> printed;
    for (const std::string& line : recording.journal) {
      if (line.starts_with("print ")) printed.push_back(line);
    }
    return printed;
  }

  TemporaryFolder folder;
  RecordingPlatform recording;
  GrantedFiles files;
  GrantingPanel panel{recording.panel, files};
};

}  // namespace

TEST_F(GrantingPanelTest, GrantsTheFolderThatWasConfirmed) {
  EXPECT_THAT(run({PanelResponse::confirmed, folder.path()}), IsEmpty());
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 24);
}

TEST_F(GrantingPanelTest, AsksTheQuestionAsItIsPut) {
  run({PanelResponse::confirmed, folder.path()});
  ASSERT_THAT(recording.panel.asked, SizeIs(1));
  EXPECT_EQ(recording.panel.asked[0].title, "Choose directory to save new app icons");
}

// Also as root, who may write to `/`.
TEST_F(GrantingPanelTest, GrantsNothingWhenCancelled) {
  const auto before = namesIn("/");
  const auto printed = run({PanelResponse::cancelled, std::nullopt});
  EXPECT_THAT(printed, SizeIs(24));
  EXPECT_THAT(printed, Each(StartsWith("print error saving: \"/")));
  EXPECT_THAT(printed.front(), HasSubstr("\"/iTunesArtwork.png\""));
  EXPECT_THAT(printed.back(), HasSubstr("\"/Contents.json\""));
  EXPECT_EQ(recording.journal.back(), "reveal ''");
  EXPECT_EQ(namesIn("/"), before);
}

TEST_F(GrantingPanelTest, GrantsNothingWhenCancelledWithAPathLeftBehind) {
  EXPECT_THAT(run({PanelResponse::cancelled, folder.path()}), SizeIs(24));
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(GrantingPanelTest, GrantsNothingWhenConfirmedWithoutAPath) {
  EXPECT_THAT(run({PanelResponse::confirmed, std::nullopt}), SizeIs(24));
}

TEST_F(GrantingPanelTest, ForgetsAFolderPickedBeforeACancel) {
  EXPECT_THAT(run({PanelResponse::confirmed, folder.path()}), IsEmpty());
  const std::string before = snapshot(folder.path());
  const auto root = namesIn("/");
  EXPECT_THAT(run({PanelResponse::cancelled, folder.path()}), SizeIs(24));
  EXPECT_NE(files.writeInPlace(folder.path() / "x.png", {}), std::nullopt);
  EXPECT_EQ(snapshot(folder.path()), before);
  EXPECT_EQ(namesIn("/"), root);
}

}  // namespace tessarine::testing
