#pragma once

#include "intake/drop_target.h"
#include "platform/controls.h"
#include "platform/outlet.h"
#include "platform/platform.h"

namespace tessarine {

// The view of the main screen: a drop target with the generators of the four fixed sets.
class DragView {
 public:
  struct Outlets {
    Outlet<ImageView> imageView;
    Outlet<Button> btniOS;
    Outlet<Button> btnMacOS;
    Outlet<Button> btnAppleWatch;
    Outlet<Button> btnWindows10;
    // Its effect comes from the interface description alone.
    Outlet<Button> btnCustom;
  };

  // Both arguments must outlive the view.
  DragView(Platform& platform, DropView& view);
  DragView(const DragView&) = delete;
  DragView& operator=(const DragView&) = delete;

  Outlets outlets;
  DropTarget dropTarget;

  void btniOS();
  void btnMacOS();
  void btnAppleWatch();
  void btnWindows10();

 private:
  void generateIOSIcons();
  void generateMacOSIcons();
  void generateAppleWatchIcons();
  void generateWindows10Icons();

  Platform& platform_;
};

}  // namespace tessarine
