#include "app/custom_drag_view.h"

#include "custom/custom_icon_generator.h"
#include "custom/form_validation.h"

namespace tessarine {

CustomDragView::CustomDragView(Platform& platform, DropView& view)
    : dropTarget(platform.pictures, view, outlets.imageView, {&outlets.btnCustom}),
      platform_(platform) {}

void CustomDragView::btnResizeCustomImages() {
  if (!validateForm(platform_, outlets.form)) return;
  generateCustomIcons(platform_, dropTarget.iconInfo(), outlets.form);
}

}  // namespace tessarine
