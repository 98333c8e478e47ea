#include "intake/drop_target.h"

#include <array>
#include <utility>

namespace tessarine {

namespace {

constexpr double highlightWidth = 2.0;
constexpr double wellFrameWidth = 4.0;

constexpr std::array readableClasses{ReadableClass::image, ReadableClass::color,
                                     ReadableClass::string, ReadableClass::url};

// The kinds of text that a string can be read from; other kinds of text inherit from them.
constexpr std::array<std::string_view, 1> readableTextTypes{"text/plain"};

}  // namespace

DropTarget::DropTarget(Pictures& pictures, DropView& view, Outlet<ImageView>& imageView,
                       std::vector<Outlet<Button>*> generationButtons)
    : pictures_(pictures),
      view_(view),
      imageView_(imageView),
      generationButtons_(std::move(generationButtons)) {}

void DropTarget::awakeFromNib() {
  view_.setWantsLayer(true);
  imageView_->setWantsLayer(true);
  if (Layer* layer = imageView_->layer()) {
    layer->setBorderWidth(wellFrameWidth);
    layer->setBorderColor(FrameColor::lightGray);
  }
  view_.registerForDraggedTypes(acceptedFileExtensions);
  for (Outlet<Button>* button : generationButtons_) (*button)->setEnabled(false);
}

DragOperation DropTarget::draggingEntered(DraggingInfo& sender) {
  DraggingPasteboard& pasteboard = sender.draggingPasteboard();
  if (!pasteboard.canReadObjects(readableClasses, pasteboardReadingOptions())) {
    return DragOperation::none;
  }
  showDropHighlight();
  return DragOperation::copy;
}

bool DropTarget::performDragOperation(DraggingInfo& sender) {
  const auto items =
      sender.draggingPasteboard().readObjects(readableClasses, pasteboardReadingOptions());
  if (!items || items->empty()) return false;
  for (const DragItem& item : *items) {
    if (const auto* picture = std::get_if<Picture>(&item)) {
      hold(*picture);
    } else if (const auto* file = std::get_if<FileItem>(&item)) {
      take(*file);
    }
  }
  if (DestinationWindow* window = sender.draggingDestinationWindow()) {
    window->orderFrontRegardless();
  }
  return true;
}

void DropTarget::concludeDragOperation(DraggingInfo&) {
  imageView_->setImage(iconInfo_.image(pictures_));
}

void DropTarget::draggingEnded(DraggingInfo&) {
  hideDropHighlight();
}

void DropTarget::draggingExited(DraggingInfo&) {
  hideDropHighlight();
}

void DropTarget::hold(const Picture& picture) {
  iconInfo_.imageData = pictures_.tiffRepresentation(picture);
}

void DropTarget::take(const FileItem& file) {
  if (const auto picture = pictures_.decodeFile(file.path)) hold(*picture);
  draggedIconPath_ = file.path;
  for (Outlet<Button>* button : generationButtons_) (*button)->setEnabled(true);
}

ReadingOptions DropTarget::pasteboardReadingOptions() {
  ReadingOptions options{pictures_.imageTypes()};
  options.urlContentsConformToTypes.insert(options.urlContentsConformToTypes.end(),
                                           readableTextTypes.begin(), readableTextTypes.end());
  return options;
}

void DropTarget::showDropHighlight() {
  if (Layer* layer = view_.layer()) {
    layer->setBorderColor(FrameColor::accent);
    layer->setBorderWidth(highlightWidth);
  }
}

void DropTarget::hideDropHighlight() {
  if (Layer* layer = view_.layer()) {
    layer->setBorderColor(FrameColor::clear);
    layer->setBorderWidth(0.0);
  }
}

}  // namespace tessarine
