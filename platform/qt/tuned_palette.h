#pragma once

#include <QPalette>

namespace tessarine {

// The colours of the program's own look. Texts stand out from their ground by 4.5:1 or more.
QPalette lightPalette();
QPalette darkPalette();

}  // namespace tessarine
