#include "intake/drop_target.h"

#include <gmock/gmock.h>

#include "tests/support/fake_controls.h"

namespace tessarine {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class DropTargetTest : public ::testing::Test {
 protected:
  DropTargetTest() {
    imageView.connect(well);
    one.connect(firstButton);
    two.connect(secondButton);
    host.pictures.files["/one.png"] = testing::plainPicture({1, 1});
    host.pictures.files["/two.png"] = testing::plainPicture({2, 2});
    host.pictures.files["/empty.png"] = Picture{{3, 3}, std::nullopt};
    host.pictures.decodable["tiff of 1x1"] = testing::plainPicture({9, 9});
    host.pictures.decodable["tiff of 5x5"] = testing::plainPicture({5, 5});
  }

  // Performs a drop of the items and answers with what it said.
  bool drop(std::vector<DragItem> items) {
    drag.items = std::move(items);
    return target.performDragOperation(drag);
  }

  // Concludes the drop and answers with what the well then does.
  std::string shown() {
    target.concludeDragOperation(drag);
    return journal.back();
  }

  std::string held() const {
    if (!target.iconInfo().imageData) return "nothing";
    const auto bytes = target.iconInfo().imageData->bytes();
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }

  testing::RecordingPlatform host;
  testing::Journal& journal = host.journal;
  testing::FakeDropView view{journal};
  testing::FakeImageView well{journal};
  testing::FakeButton firstButton{journal, "first"};
  testing::FakeButton secondButton{journal, "second"};
  testing::FakeDrag drag{journal};
  Outlet<ImageView> imageView;
  Outlet<Button> one;
  Outlet<Button> two;
  DropTarget target{host.pictures, view, imageView, {&one, &two}};
};

TEST_F(DropTargetTest, StartsEmpty) {
  EXPECT_EQ(held(), "nothing");
  EXPECT_EQ(target.draggedIconPath(), std::nullopt);
  EXPECT_THAT(DropTarget::acceptedFileExtensions,
              ElementsAre(pasteboardTypeTIFF, pasteboardTypeFileURL));
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(DropTargetTest, SetsUpInOrder) {
  target.awakeFromNib();
  EXPECT_THAT(journal,
              ElementsAre("view wants layer", "well wants layer", "well border width 4",
                          "well border colour light grey", "register image/tiff text/uri-list",
                          "disable first", "disable second"));
}

TEST_F(DropTargetTest, SetsUpWithoutLayers) {
  view.hasLayer = false;
  well.hasLayer = false;
  target.awakeFromNib();
  EXPECT_THAT(journal, Not(Contains(::testing::HasSubstr("border"))));
  EXPECT_EQ(journal.back(), "disable second");
}

TEST_F(DropTargetTest, AsksForItsClassesAndForPictureThenTextTypes) {
  target.draggingEntered(drag);
  EXPECT_THAT(drag.classes, ElementsAre(ReadableClass::image, ReadableClass::color,
                                        ReadableClass::string, ReadableClass::url));
  EXPECT_THAT(drag.types, ElementsAre("image/x-first", "image/x-second", "text/plain"));
}

TEST_F(DropTargetTest, BuildsItsListOfTypesAfreshAtEachCall) {
  target.draggingEntered(drag);
  host.pictures.types = {"image/x-new"};
  drop({});
  EXPECT_THAT(drag.types, ElementsAre("image/x-new", "text/plain"));
}

TEST_F(DropTargetTest, HighlightsADragThatItAccepts) {
  EXPECT_EQ(target.draggingEntered(drag), DragOperation::copy);
  EXPECT_THAT(journal, ElementsAre("view border colour accent", "view border width 2"));
}

TEST_F(DropTargetTest, RefusesADragThatItCannotReadAndLeavesTheHighlight) {
  drag.readable = false;
  EXPECT_EQ(target.draggingEntered(drag), DragOperation::none);
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(DropTargetTest, RemovesTheHighlightWhenTheDragLeavesOrEnds) {
  target.draggingExited(drag);
  EXPECT_THAT(journal, ElementsAre("view border colour clear", "view border width 0"));
  journal.clear();
  target.draggingEnded(drag);
  EXPECT_THAT(journal, ElementsAre("view border colour clear", "view border width 0"));
}

TEST_F(DropTargetTest, HighlightsNothingWithoutALayer) {
  view.hasLayer = false;
  EXPECT_EQ(target.draggingEntered(drag), DragOperation::copy);
  target.draggingEnded(drag);
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(DropTargetTest, RefusesADropWithoutItems) {
  EXPECT_FALSE(drop({}));
  drag.items.reset();
  EXPECT_FALSE(target.performDragOperation(drag));
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(DropTargetTest, HoldsAFileAndEnablesTheButtonsInOrder) {
  EXPECT_TRUE(drop({FileItem{"/one.png"}}));
  EXPECT_EQ(held(), "tiff of 1x1");
  EXPECT_EQ(target.draggedIconPath(), "/one.png");
  EXPECT_THAT(journal, ElementsAre("decode file /one.png", "tiff 1x1", "enable first",
                                   "enable second", "window to front"));
}

TEST_F(DropTargetTest, HoldsAPictureItemButEnablesNothing) {
  drop({FileItem{"/one.png"}});
  journal.clear();
  EXPECT_TRUE(drop({testing::plainPicture({5, 5})}));
  EXPECT_EQ(held(), "tiff of 5x5");
  EXPECT_EQ(target.draggedIconPath(), "/one.png");
  EXPECT_THAT(journal, ElementsAre("tiff 5x5", "window to front"));
  EXPECT_EQ(shown(), "well shows 5x5");
}

TEST_F(DropTargetTest, HoldsNothingAfterAPictureWithoutTIFFData) {
  drop({FileItem{"/one.png"}});
  EXPECT_TRUE(drop({Picture{{4, 4}, std::nullopt}}));
  EXPECT_EQ(held(), "nothing");
}

TEST_F(DropTargetTest, HoldsNothingAfterAFileWithoutTIFFData) {
  drop({FileItem{"/one.png"}});
  EXPECT_TRUE(drop({FileItem{"/empty.png"}}));
  EXPECT_EQ(held(), "nothing");
  EXPECT_EQ(target.draggedIconPath(), "/empty.png");
}

TEST_F(DropTargetTest, KeepsThePictureButTakesThePathOfAFileThatDoesNotLoad) {
  drop({testing::plainPicture({5, 5})});
  journal.clear();
  EXPECT_TRUE(drop({FileItem{"/notes.txt"}}));
  EXPECT_EQ(held(), "tiff of 5x5");
  EXPECT_EQ(target.draggedIconPath(), "/notes.txt");
  EXPECT_THAT(journal, ElementsAre("decode file /notes.txt", "enable first", "enable second",
                                   "window to front"));
  EXPECT_EQ(shown(), "well shows 5x5");
}

TEST_F(DropTargetTest, TakesTheLastOfSeveralFiles) {
  EXPECT_TRUE(drop({FileItem{"/two.png"}, FileItem{"/one.png"}}));
  EXPECT_EQ(held(), "tiff of 1x1");
  EXPECT_EQ(target.draggedIconPath(), "/one.png");
}

TEST_F(DropTargetTest, TakesTheLastOfMixedItemsInTheirOrder) {
  EXPECT_TRUE(drop({FileItem{"/two.png"}, ColorItem{}, testing::plainPicture({7, 7}),
                    TextItem{"/one.png"}, FileItem{"/gone.png"}}));
  EXPECT_EQ(held(), "tiff of 7x7");
  EXPECT_EQ(target.draggedIconPath(), "/gone.png");
}

TEST_F(DropTargetTest, AcceptsColoursAndTextsAndIgnoresThem) {
  drop({FileItem{"/one.png"}});
  journal.clear();
  for (const DragItem& item : {DragItem(ColorItem{}), DragItem(TextItem{"/two.png"})}) {
    EXPECT_TRUE(drop({item}));
    EXPECT_EQ(held(), "tiff of 1x1");
    EXPECT_EQ(target.draggedIconPath(), "/one.png");
    EXPECT_THAT(journal, ElementsAre("window to front"));
    EXPECT_EQ(shown(), "well shows 9x9");
    journal.clear();
  }
}

TEST_F(DropTargetTest, DoesWithoutAWindow) {
  drag.hasWindow = false;
  EXPECT_TRUE(drop({FileItem{"/one.png"}}));
  EXPECT_EQ(journal.back(), "enable second");
}

TEST_F(DropTargetTest, ShowsWhatIsHeldAfterTheDrop) {
  target.concludeDragOperation(drag);
  EXPECT_THAT(journal, ElementsAre("well shows nothing"));
  drop({FileItem{"/one.png"}});
  journal.clear();
  target.concludeDragOperation(drag);
  EXPECT_THAT(journal, ElementsAre("decode tiff of 1x1", "well shows 9x9"));
}

TEST_F(DropTargetTest, ShowsNothingWhenTheHeldBytesDoNotDecode) {
  drop({FileItem{"/one.png"}});
  host.pictures.decodable.clear();
  target.concludeDragOperation(drag);
  EXPECT_EQ(journal.back(), "well shows nothing");
}

TEST_F(DropTargetTest, NeverTouchesTheFrameOfTheWell) {
  target.draggingEntered(drag);
  drop({FileItem{"/one.png"}});
  target.concludeDragOperation(drag);
  target.draggingEnded(drag);
  target.draggingExited(drag);
  EXPECT_THAT(journal, Each(Not(StartsWith("well border"))));
}

using DropTargetDeathTest = DropTargetTest;

TEST_F(DropTargetDeathTest, StopsSilentlyAtAnUnconnectedOutlet) {
  Outlet<ImageView> noWell;
  Outlet<Button> noButton;
  DropTarget withoutWell(host.pictures, view, noWell, {});
  DropTarget withoutButton(host.pictures, view, imageView, {&one, &noButton});
  drag.items = {FileItem{"/notes.txt"}};
  const auto stops = ::testing::KilledBySignal(SIGABRT);
  EXPECT_EXIT(withoutWell.awakeFromNib(), stops, "^$");
  EXPECT_EXIT(withoutWell.concludeDragOperation(drag), stops, "^$");
  EXPECT_EXIT(withoutButton.awakeFromNib(), stops, "^$");
  EXPECT_EXIT(withoutButton.performDragOperation(drag), stops, "^$");
}

}  // namespace
}  // namespace tessarine
