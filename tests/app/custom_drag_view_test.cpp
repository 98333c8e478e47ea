#include "app/custom_drag_view.h"

#include <gmock/gmock.h>

#include "tests/support/fake_form.h"

namespace tessarine {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

class CustomDragViewTest : public ::testing::Test {
 protected:
  CustomDragViewTest() {
    customDragView.outlets.imageView.connect(well);
    customDragView.outlets.btnCustom.connect(button);
    customDragView.outlets.form = fields.form;
    host.pictures.files["/icon.png"] = testing::plainPicture({4, 4});
    host.pictures.decodable["tiff of 4x4"] = testing::plainPicture({4, 4});
  }

  testing::RecordingPlatform host;
  testing::Journal& journal = host.journal;
  testing::FakeDropView view{journal};
  testing::FakeImageView well{journal};
  testing::FakeButton button{journal, "custom"};
  testing::FakeDrag drag{journal};
  testing::FakeForm fields{journal};
  CustomDragView customDragView{host.platform, view};
};

TEST_F(CustomDragViewTest, DisablesAndEnablesItsOnlyButton) {
  customDragView.dropTarget.awakeFromNib();
  EXPECT_EQ(journal.back(), "disable custom");
  journal.clear();
  drag.items = {FileItem{"/icon.png"}};
  customDragView.dropTarget.performDragOperation(drag);
  EXPECT_THAT(journal,
              ElementsAre("decode file /icon.png", "tiff 4x4", "enable custom", "window to front"));
}

TEST_F(CustomDragViewTest, TouchesNoTextFieldInADrop) {
  for (FormRow& row : customDragView.outlets.form.rows) row = {};
  customDragView.dropTarget.awakeFromNib();
  drag.items = {FileItem{"/icon.png"}};
  EXPECT_TRUE(customDragView.dropTarget.performDragOperation(drag));
}

TEST_F(CustomDragViewTest, EndsTheActionAfterAnAlert) {
  customDragView.btnResizeCustomImages();
  EXPECT_THAT(journal, ElementsAre("read name 1",
                                   "alert Please type in a name for \"AppIcon01\" text field and "
                                   "try again. [OK]",
                                   "focus name 1"));
}

TEST_F(CustomDragViewTest, GeneratesAFormThatPasses) {
  drag.items = {FileItem{"/icon.png"}};
  customDragView.dropTarget.performDragOperation(drag);
  fields.fill(1, {"Icon", "20", "30"});
  customDragView.btnResizeCustomImages();
  EXPECT_THAT(journal, Contains("write /picked/Icon.png 20x30"));
  EXPECT_THAT(journal, Not(Contains(::testing::StartsWith("alert"))));
  EXPECT_EQ(journal.back(), "reveal '/picked'");
}

}  // namespace
}  // namespace tessarine
