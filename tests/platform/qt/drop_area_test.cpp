#include "platform/qt/drop_area.h"

#include <gtest/gtest.h>

#include <QDragEnterEvent>

#include "platform/pasteboard.h"
#include "tests/support/qt_drags.h"
#include "tests/support/recording_platform.h"

namespace tessarine {
namespace {

using testing::copies;
using testing::Drag;
using testing::DragAnswer;
using testing::Journal;

constexpr DragAnswer refuses{};

struct RecordingDestination final : DraggingDestination {
  DragOperation draggingEntered(DraggingInfo& sender) override {
    journal.push_back("entered");
    EXPECT_NE(sender.draggingDestinationWindow(), nullptr);
    return answer;
  }
  bool performDragOperation(DraggingInfo& sender) override {
    journal.push_back("perform");
    constexpr std::array classes{ReadableClass::string};
    text = std::get<TextItem>(sender.draggingPasteboard().readObjects(classes, {})->at(0)).text;
    return performs;
  }
  void concludeDragOperation(DraggingInfo&) override { journal.push_back("conclude"); }
  void draggingEnded(DraggingInfo&) override { journal.push_back("ended"); }
  void draggingExited(DraggingInfo&) override { journal.push_back("exited"); }

  DragOperation answer = DragOperation::copy;
  bool performs = true;
  std::string text;
  Journal journal;
};

class DropAreaDrags : public ::testing::Test {
 protected:
  DropAreaDrags() {
    area_.setDestination(destination_, host_.pictures);
    area_.registerForDraggedTypes({});
    data_.setText("words");
  }

  testing::RecordingPlatform host_;
  RecordingDestination destination_;
  DropArea area_;
  QMimeData data_;
};

TEST_F(DropAreaDrags, ADropIsPerformedConcludedAndEnded) {
  Drag drag(area_, data_);
  EXPECT_EQ(drag.enter(), copies);
  EXPECT_EQ(drag.move(), copies);
  EXPECT_EQ(drag.drop(), copies);
  EXPECT_EQ(destination_.journal, (Journal{"entered", "perform", "conclude", "ended"}));
  EXPECT_EQ(destination_.text, "words");
}

TEST_F(DropAreaDrags, ARefusedDropIsNotConcludedButEnded) {
  destination_.performs = false;
  Drag drag(area_, data_);
  drag.enter();
  EXPECT_EQ(drag.drop(), refuses);
  EXPECT_EQ(destination_.journal, (Journal{"entered", "perform", "ended"}));
}

TEST_F(DropAreaDrags, ARefusedDragIsNotPerformed) {
  destination_.answer = DragOperation::none;
  Drag drag(area_, data_);
  EXPECT_EQ(drag.enter(), refuses);
  EXPECT_EQ(drag.move(), refuses);
  EXPECT_EQ(drag.drop(), refuses);
  EXPECT_EQ(destination_.journal, (Journal{"entered"}));
}

TEST_F(DropAreaDrags, ADragMayLeaveAndComeBack) {
  Drag drag(area_, data_);
  drag.enter();
  drag.leave();
  EXPECT_EQ(drag.move(), refuses);
  EXPECT_EQ(drag.enter(), copies);
  EXPECT_EQ(destination_.journal, (Journal{"entered", "exited", "entered"}));
}

TEST_F(DropAreaDrags, CopiesWhereTheSourceWouldRatherMove) {
  Drag drag(area_, data_, Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::MoveAction);
  EXPECT_EQ(drag.enter(), copies);
  EXPECT_EQ(drag.move(), copies);
  EXPECT_EQ(drag.drop(), copies);
}

TEST_F(DropAreaDrags, TakesNothingFromASourceThatOnlyMoves) {
  Drag drag(area_, data_, Qt::MoveAction, Qt::MoveAction);
  EXPECT_EQ(drag.enter(), refuses);
  EXPECT_EQ(drag.drop(), refuses);
  EXPECT_EQ(destination_.journal, Journal{});
}

TEST(DropArea, ListensToEveryDragOnceAnyTypeIsRegistered) {
  DropArea area;
  EXPECT_FALSE(area.acceptDrops());
  constexpr std::array types{pasteboardTypeTIFF};
  area.registerForDraggedTypes(types);
  EXPECT_TRUE(area.acceptDrops());
}

TEST(DropArea, HasALayerWhenItWantsOne) {
  DropArea area;
  EXPECT_EQ(area.layer(), nullptr);
  area.setWantsLayer(true);
  Layer* layer = area.layer();
  ASSERT_NE(layer, nullptr);
  area.setWantsLayer(true);
  EXPECT_EQ(area.layer(), layer);
  area.setWantsLayer(false);
  EXPECT_EQ(area.layer(), nullptr);
}

}  // namespace
}  // namespace tessarine
