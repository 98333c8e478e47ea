#include <gmock/gmock.h>

#include <functional>

#include "custom/custom_icon_generator.h"
#include "iconsets/apple_watch.h"
#include "iconsets/icon_set_generator.h"
#include "iconsets/ios.h"
#include "iconsets/macos.h"
#include "iconsets/windows10.h"
#include "platform/posix/granting_panel.h"
#include "tests/support/fake_form.h"
#include "tests/support/recording_platform.h"
#include "tests/support/temporary_folder.h"

// Every generator after a cancelled panel, with the real files: also as root, who may write to `/`.
namespace tessarine::testing {
namespace {

using ::testing::Each;
using ::testing::SizeIs;
using ::testing::StartsWith;

struct Run {
  const char* name;
  std::function<void(Platform&, const IconInfo&)> generate;
  std::size_t lines;
};

std::function<void(Platform&, const IconInfo&)> setOf(const IconSet& set) {
  return [&set](Platform& platform, const IconInfo& iconInfo) {
    generateIconSet(platform, iconInfo, set);
  };
}

void twoRows(Platform& platform, const IconInfo& iconInfo) {
  Journal reads;
  FakeForm fields(reads);
  fields.fill(1, {"One", "10", "10"});
  fields.fill(2, {"a", "10", "10"});
  fields.fill(8, {"../Two", "20", "20"});
  generateCustomIcons(platform, iconInfo, fields.form);
}

class CancelledPanel : public ::testing::TestWithParam<Run> {};

TEST_P(CancelledPanel, GivesOneLineAFileAndLeavesTheRootFolderAsItWas) {
  RecordingPlatform recording;
  recording.pictures.decodable["picture"] = plainPicture({8, 8});
  recording.panel.answer = {PanelResponse::cancelled, "/left/behind"};
  GrantedFiles files;
  GrantingPanel panel(recording.panel, files);
  const Platform& fake = recording.platform;
  Platform platform{fake.pictures, files, panel, fake.workspace, fake.console, fake.alert};
  IconInfo iconInfo;
  iconInfo.imageData = bytesOf("picture");
  const auto before = namesIn("/");

  GetParam().generate(platform, iconInfo);

  std::vector<std::string> lines;
  for (const std::string& line : recording.journal) {
    if (line.starts_with("print ")) lines.push_back(line);
  }
  EXPECT_THAT(lines, SizeIs(GetParam().lines));
  EXPECT_THAT(lines, Each(StartsWith("print error saving: \"/")));
  EXPECT_EQ(recording.journal.back(), "reveal ''");
  EXPECT_EQ(namesIn("/"), before);
}

INSTANTIATE_TEST_SUITE_P(Generators, CancelledPanel,
                         ::testing::Values(Run{"iOS", setOf(iOSIconSet), 24},
                                           Run{"macOS", setOf(macOSIconSet), 11},
                                           Run{"AppleWatch", setOf(appleWatchIconSet), 12},
                                           Run{"Windows10", setOf(windows10IconSet), 56},
                                           Run{"Custom", twoRows, 2}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tessarine::testing
