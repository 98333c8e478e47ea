#include "app/drag_view.h"

#include "iconsets/apple_watch.h"
#include "iconsets/icon_set_generator.h"
#include "iconsets/ios.h"
#include "iconsets/macos.h"
#include "iconsets/windows10.h"

namespace tessarine {

DragView::DragView(Platform& platform, DropView& view)
    : dropTarget(
          platform.pictures, view, outlets.imageView,
          {&outlets.btniOS, &outlets.btnMacOS, &outlets.btnAppleWatch, &outlets.btnWindows10}),
      platform_(platform) {}

void DragView::btniOS() {
  generateIOSIcons();
}
void DragView::btnMacOS() {
  generateMacOSIcons();
}
void DragView::btnAppleWatch() {
  generateAppleWatchIcons();
}
void DragView::btnWindows10() {
  generateWindows10Icons();
}

void DragView::generateIOSIcons() {
  generateIconSet(platform_, dropTarget.iconInfo(), iOSIconSet);
}

void DragView::generateMacOSIcons() {
  generateIconSet(platform_, dropTarget.iconInfo(), macOSIconSet);
}

void DragView::generateAppleWatchIcons() {
  generateIconSet(platform_, dropTarget.iconInfo(), appleWatchIconSet);
}

void DragView::generateWindows10Icons() {
  generateIconSet(platform_, dropTarget.iconInfo(), windows10IconSet);
}

}  // namespace tessarine
