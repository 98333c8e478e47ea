#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "intake/icon_info.h"
#include "platform/controls.h"
#include "platform/dragging.h"
#include "platform/outlet.h"
#include "platform/pasteboard.h"
#include "platform/pictures.h"

namespace tessarine {

// The drop logic of a screen: accepts a dragged picture, holds its bytes, shows it and enables the
// buttons that start generation. The screens differ by their list of buttons alone.
class DropTarget final : public DraggingDestination {
 public:
  // The pasteboard types for which the view registers; file-name extensions play no part.
  static constexpr std::array acceptedFileExtensions{pasteboardTypeTIFF, pasteboardTypeFileURL};

  // `view`, the outlets behind `imageView` and `generationButtons`, and `pictures` must outlive
  // the target. The buttons are disabled and enabled in the order of the list.
  DropTarget(Pictures& pictures, DropView& view, Outlet<ImageView>& imageView,
             std::vector<Outlet<Button>*> generationButtons);

  // Once, after the outlets have been connected.
  void awakeFromNib();

  DragOperation draggingEntered(DraggingInfo& sender) override;
  bool performDragOperation(DraggingInfo& sender) override;
  void concludeDragOperation(DraggingInfo& sender) override;
  void draggingEnded(DraggingInfo& sender) override;
  void draggingExited(DraggingInfo& sender) override;

  const IconInfo& iconInfo() const { return iconInfo_; }
  // The path of the last file that was dropped, whether or not it was a picture.
  const std::optional<std::string>& draggedIconPath() const { return draggedIconPath_; }

 private:
  ReadingOptions pasteboardReadingOptions();
  void showDropHighlight();
  void hideDropHighlight();
  void hold(const Picture& picture);
  void take(const FileItem& file);

  Pictures& pictures_;
  DropView& view_;
  Outlet<ImageView>& imageView_;
  std::vector<Outlet<Button>*> generationButtons_;
  IconInfo iconInfo_;
  std::optional<std::string> draggedIconPath_;
};

}  // namespace tessarine
