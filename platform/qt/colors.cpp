#include "platform/qt/colors.h"

namespace tessarine {

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightnessF() <
         palette.color(QPalette::WindowText).lightnessF();
}

QColor accentColor(const QPalette& palette) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
  return palette.color(QPalette::Active, QPalette::Accent);
#else
  return palette.color(QPalette::Active, QPalette::Highlight);
#endif
}

QColor frameColor(FrameColor role, const QPalette& palette) {
  switch (role) {
    case FrameColor::accent:
      return accentColor(palette);
    case FrameColor::lightGray:
      return isDark(palette) ? QColor(0xaa, 0xaa, 0xaa) : QColor(0x8c, 0x8c, 0x91);
    case FrameColor::clear:
      break;
  }
  return Qt::transparent;
}

QColor secondaryText(const QPalette& palette) {
  return blend(palette.color(QPalette::Active, QPalette::WindowText),
               palette.color(QPalette::Active, QPalette::Window), 0.32);
}

QColor blend(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
  return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                          mix(from.blueF(), to.blueF()), mix(from.alphaF(), to.alphaF()));
}

}  // namespace tessarine
