#pragma once

#include <QColor>
#include <QPalette>

#include "platform/controls.h"

namespace tessarine {

bool isDark(const QPalette& palette);

// The desktop's accent colour where this version of Qt knows it, else the one of selections.
QColor accentColor(const QPalette& palette);

// The value of a role: the light grey stands out from the window by 3:1, also in light colours.
QColor frameColor(FrameColor role, const QPalette& palette);

// For words beside the main text.
QColor secondaryText(const QPalette& palette);

// `share` of 0 is `from`, 1 is `to`.
QColor blend(const QColor& from, const QColor& to, double share);

}  // namespace tessarine
