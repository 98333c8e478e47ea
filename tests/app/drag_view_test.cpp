#include "app/drag_view.h"

#include <gmock/gmock.h>

#include "iconsets/apple_watch.h"
#include "iconsets/ios.h"
#include "iconsets/macos.h"
#include "iconsets/windows10.h"
#include "tests/support/fake_controls.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;

class DragViewTest : public ::testing::Test {
 protected:
  DragViewTest() {
    dragView.outlets.imageView.connect(well);
    dragView.outlets.btniOS.connect(iOS);
    dragView.outlets.btnMacOS.connect(macOS);
    dragView.outlets.btnAppleWatch.connect(appleWatch);
    dragView.outlets.btnWindows10.connect(windows10);
    host.pictures.files["/icon.png"] = testing::plainPicture({4, 4});
    host.pictures.decodable["tiff of 4x4"] = testing::plainPicture({4, 4});
  }

  void drop() {
    drag.items = {FileItem{"/icon.png"}};
    dragView.dropTarget.performDragOperation(drag);
    journal.clear();
  }

  // The names of the written PNG files, in order.
  std::vector<std::string> namesWritten() const {
    std::vector<std::string> names;
    for (const std::string& line : journal) {
      constexpr std::string_view prefix = "write /picked/";
      if (!line.starts_with(prefix)) continue;
      names.push_back(line.substr(prefix.size(), line.rfind(".png") - prefix.size()));
    }
    return names;
  }

  testing::RecordingPlatform host;
  testing::Journal& journal = host.journal;
  testing::FakeDropView view{journal};
  testing::FakeImageView well{journal};
  testing::FakeButton iOS{journal, "iOS"};
  testing::FakeButton macOS{journal, "macOS"};
  testing::FakeButton appleWatch{journal, "Apple Watch"};
  testing::FakeButton windows10{journal, "Windows 10"};
  testing::FakeDrag drag{journal};
  DragView dragView{host.platform, view};
};

TEST_F(DragViewTest, DisablesTheFourPlatformButtonsInOrderAndNotBtnCustom) {
  // btnCustom is not even connected: no code of this view acts on it.
  dragView.dropTarget.awakeFromNib();
  const testing::Journal last(journal.end() - 4, journal.end());
  EXPECT_THAT(last, ElementsAre("disable iOS", "disable macOS", "disable Apple Watch",
                                "disable Windows 10"));
}

TEST_F(DragViewTest, EnablesTheFourPlatformButtonsInOrderAfterAFile) {
  drag.items = {FileItem{"/notes.txt"}};
  dragView.dropTarget.performDragOperation(drag);
  EXPECT_THAT(journal, ElementsAre("decode file /notes.txt", "enable iOS", "enable macOS",
                                   "enable Apple Watch", "enable Windows 10", "window to front"));
}

struct ActionCase {
  const char* name;
  void (DragView::*action)();
  const IconSet& set;
};

class Actions : public DragViewTest, public ::testing::WithParamInterface<ActionCase> {};

TEST_P(Actions, RunTheirSet) {
  drop();
  (dragView.*GetParam().action)();
  const auto& names = GetParam().set.names;
  EXPECT_EQ(namesWritten(), std::vector<std::string>(names.begin(), names.end()));
  EXPECT_EQ(host.files.written.contains("/picked/Contents.json"),
            GetParam().set.contentsJSON.has_value());
  EXPECT_EQ(journal.back(), "reveal '/picked'");
}

INSTANTIATE_TEST_SUITE_P(
    Sets, Actions,
    ::testing::Values(ActionCase{"btniOS", &DragView::btniOS, iOSIconSet},
                      ActionCase{"btnMacOS", &DragView::btnMacOS, macOSIconSet},
                      ActionCase{"btnAppleWatch", &DragView::btnAppleWatch, appleWatchIconSet},
                      ActionCase{"btnWindows10", &DragView::btnWindows10, windows10IconSet}),
    [](const auto& row) { return std::string(row.param.name); });

using DragViewDeathTest = DragViewTest;

TEST_F(DragViewDeathTest, StopsSilentlyAfterATextFileAlone) {
  drag.items = {FileItem{"/notes.txt"}};
  dragView.dropTarget.performDragOperation(drag);
  EXPECT_EXIT(dragView.btniOS(), ::testing::KilledBySignal(SIGABRT), "^$");
}

}  // namespace
}  // namespace tessarine
