#pragma once

#include <QMenuBar>

namespace tessarine {

// Adds the editing items, which act on the text field that has the focus.
void addEditMenu(QMenuBar& menus);

}  // namespace tessarine
