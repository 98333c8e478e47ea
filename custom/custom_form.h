#pragma once

#include <array>

#include "platform/controls.h"
#include "platform/outlet.h"

namespace tessarine {

// One file of the user's own: its name, and its width (left) and height (right) in pixels.
struct FormRow {
  Outlet<TextField> name;
  Outlet<TextField> left;
  Outlet<TextField> right;
};

struct CustomForm {
  std::array<FormRow, 8> rows;
};

}  // namespace tessarine
