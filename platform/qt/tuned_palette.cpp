#include "platform/qt/tuned_palette.h"

#include <QColor>

namespace tessarine {

namespace {

struct Tones {
  QRgb window;
  QRgb base;
  QRgb alternate;
  QRgb button;
  QRgb text;
  QRgb placeholder;
  QRgb disabled;
  QRgb accent;
  QRgb link;
  QRgb toolTip;
  // Lines and shadows that styles draw, from the lightest to the darkest.
  QRgb light, midlight, mid, dark, shadow;
};

constexpr Tones lightTones{
    .window = 0xfff6f6f8,
    .base = 0xffffffff,
    .alternate = 0xfff0f0f3,
    .button = 0xfffcfcfd,
    .text = 0xff1c1c22,
    .placeholder = 0xff6f6f78,
    .disabled = 0xff8e8e98,
    .accent = 0xff4a57c8,
    .link = 0xff3a47b8,
    .toolTip = 0xffffffff,
    .light = 0xffffffff,
    .midlight = 0xffececf0,
    .mid = 0xffc8c8d0,
    .dark = 0xffa4a4ae,
    .shadow = 0xff70707a,
};

constexpr Tones darkTones{
    .window = 0xff1f1f24,
    .base = 0xff29292f,
    .alternate = 0xff2e2e35,
    .button = 0xff34343c,
    .text = 0xfff2f2f5,
    .placeholder = 0xffa0a0ab,
    .disabled = 0xff74747f,
    .accent = 0xff5b6bdc,
    .link = 0xffa3adff,
    .toolTip = 0xff34343c,
    .light = 0xff4a4a54,
    .midlight = 0xff3e3e47,
    .mid = 0xff2a2a31,
    .dark = 0xff17171b,
    .shadow = 0xff000000,
};

QPalette paletteOf(const Tones& tones) {
  QPalette palette;
  const auto set = [&palette](QPalette::ColorRole role, QRgb color) {
    palette.setColor(role, QColor::fromRgb(color));
  };
  set(QPalette::Window, tones.window);
  set(QPalette::WindowText, tones.text);
  set(QPalette::Base, tones.base);
  set(QPalette::AlternateBase, tones.alternate);
  set(QPalette::Text, tones.text);
  set(QPalette::PlaceholderText, tones.placeholder);
  set(QPalette::Button, tones.button);
  set(QPalette::ButtonText, tones.text);
  set(QPalette::BrightText, 0xffffffff);
  set(QPalette::Highlight, tones.accent);
  set(QPalette::HighlightedText, 0xffffffff);
  set(QPalette::Link, tones.link);
  set(QPalette::LinkVisited, tones.link);
  set(QPalette::ToolTipBase, tones.toolTip);
  set(QPalette::ToolTipText, tones.text);
  set(QPalette::Light, tones.light);
  set(QPalette::Midlight, tones.midlight);
  set(QPalette::Mid, tones.mid);
  set(QPalette::Dark, tones.dark);
  set(QPalette::Shadow, tones.shadow);
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
  set(QPalette::Accent, tones.accent);
#endif
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor::fromRgb(tones.disabled));
  }
  return palette;
}

}  // namespace

QPalette lightPalette() {
  return paletteOf(lightTones);
}

QPalette darkPalette() {
  return paletteOf(darkTones);
}

}  // namespace tessarine
