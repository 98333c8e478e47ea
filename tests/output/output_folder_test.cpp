#include "output/output_folder.h"

#include <gmock/gmock.h>

#include "tests/support/recording_platform.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;

class OutputFolder : public ::testing::Test {
 protected:
  std::string choose(OpenPanelAnswer answer) {
    host.panel.answer = std::move(answer);
    return chooseOutputDirectory(host.platform);
  }

  testing::RecordingPlatform host;
};

TEST_F(OutputFolder, IsAskedForWithThePanelsSettings) {
  choose({PanelResponse::confirmed, "/picked"});
  ASSERT_EQ(host.panel.asked.size(), 1U);
  EXPECT_EQ(host.panel.asked.front(), (OpenPanelSettings{
                                          .title = "Choose directory to save new app icons",
                                          .showsResizeIndicator = true,
                                          .showsHiddenFiles = false,
                                          .canChooseFiles = false,
                                          .canChooseDirectories = true,
                                          .canCreateDirectories = true,
                                      }));
}

TEST_F(OutputFolder, IsThePathAsThePanelGivesIt) {
  EXPECT_EQ(choose({PanelResponse::confirmed, "/home/me/App Größe"}), "/home/me/App Größe");
}

TEST_F(OutputFolder, IsTheEmptyTextAfterACancel) {
  EXPECT_EQ(choose({PanelResponse::cancelled, std::nullopt}), "");
  EXPECT_EQ(choose({PanelResponse::cancelled, "/left/behind"}), "");
}

TEST_F(OutputFolder, IsTheEmptyTextAfterAConfirmWithoutAPath) {
  EXPECT_EQ(choose({PanelResponse::confirmed, std::nullopt}), "");
}

TEST_F(OutputFolder, IsAskedForAfreshAndRemembersNothing) {
  EXPECT_EQ(choose({PanelResponse::confirmed, "/first"}), "/first");
  EXPECT_EQ(choose({PanelResponse::cancelled, std::nullopt}), "");
  EXPECT_THAT(host.journal, ElementsAre("ask", "ask"));
}

TEST_F(OutputFolder, IsRevealedAsItIsEvenWhenEmpty) {
  revealInFileManager(host.platform, "/picked");
  revealInFileManager(host.platform, "");
  EXPECT_THAT(host.journal, ElementsAre("reveal '/picked'", "reveal ''"));
}

}  // namespace
}  // namespace tessarine
