#include "platform/qt/theme.h"

#include <QFont>
#include <QStyle>
#include <QStyleHints>

#include "platform/qt/desktop_color_scheme.h"
#include "platform/qt/tuned_palette.h"
#include "platform/qt/tuned_style.h"

namespace tessarine {

namespace {

// Qt's own style is the sign that the desktop has none to offer.
bool desktopBringsAStyle() {
  return QApplication::style()->name() != QLatin1String("fusion");
}

bool desktopBringsAPalette() {
  const QPalette plain = QApplication::style()->standardPalette();
  const QPalette palette = QApplication::palette();
  return palette.color(QPalette::Window) != plain.color(QPalette::Window) ||
         palette.color(QPalette::Highlight) != plain.color(QPalette::Highlight);
}

// The name that Qt falls back to when nobody has chosen a font.
bool desktopBringsAFont() {
  return QApplication::font().family() != QLatin1String("Sans Serif");
}

QFont tunedFont() {
  QFont font;
  font.setFamilies({QStringLiteral("Inter"), QStringLiteral("Cantarell"),
                    QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans")});
  font.setPointSizeF(10.5);
  return font;
}

}  // namespace

Theme::Theme(QApplication& application) : QObject(&application) {
  if (desktopBringsAStyle()) return;
  const bool ownPalette = !desktopBringsAPalette();
  if (!desktopBringsAFont()) QApplication::setFont(tunedFont());
  QApplication::setStyle(new TunedStyle);
  if (!ownPalette) return;

  setDark(false);
  // One source alone tells the colours: Qt where it knows them, else the desktop's portal.
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
  const QStyleHints* hints = application.styleHints();
  if (hints->colorScheme() != Qt::ColorScheme::Unknown) {
    const auto follow = [this](Qt::ColorScheme scheme) {
      setDark(scheme == Qt::ColorScheme::Dark);
    };
    follow(hints->colorScheme());
    connect(hints, &QStyleHints::colorSchemeChanged, this, follow);
    return;
  }
#endif
  auto* scheme = new DesktopColorScheme(this);
  connect(scheme, &DesktopColorScheme::told, this, &Theme::setDark);
}

void Theme::setDark(bool dark) {
  QApplication::setPalette(dark ? darkPalette() : lightPalette());
}

}  // namespace tessarine
