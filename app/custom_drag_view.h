#pragma once

#include "custom/custom_form.h"
#include "intake/drop_target.h"
#include "platform/controls.h"
#include "platform/outlet.h"
#include "platform/platform.h"

namespace tessarine {

// The view of the custom-sizes screen: a drop target with a form of eight rows.
class CustomDragView {
 public:
  struct Outlets {
    Outlet<ImageView> imageView;
    Outlet<Button> btnCustom;
    CustomForm form;
  };

  // Both arguments must outlive the view.
  CustomDragView(Platform& platform, DropView& view);
  CustomDragView(const CustomDragView&) = delete;
  CustomDragView& operator=(const CustomDragView&) = delete;

  Outlets outlets;
  DropTarget dropTarget;

  void btnResizeCustomImages();

 private:
  Platform& platform_;
};

}  // namespace tessarine
