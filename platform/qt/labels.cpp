#include "platform/qt/labels.h"

#include <QApplication>
#include <QEvent>

#include "platform/qt/colors.h"

namespace tessarine {

namespace {

QFont headingFont() {
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() * 1.6);
  font.setWeight(QFont::DemiBold);
  return font;
}

QPalette notePalette() {
  QPalette palette = QApplication::palette();
  palette.setColor(QPalette::WindowText, secondaryText(palette));
  return palette;
}

}  // namespace

HeadingLabel::HeadingLabel(QWidget* parent) : QLabel(parent) {
  setFont(headingFont());
}

void HeadingLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::ApplicationFontChange) setFont(headingFont());
}

NoteLabel::NoteLabel(QWidget* parent) : QLabel(parent) {
  setPalette(notePalette());
}

void NoteLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange) setPalette(notePalette());
}

}  // namespace tessarine
