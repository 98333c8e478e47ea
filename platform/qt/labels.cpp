#include "platform/qt/labels.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>

#include "platform/qt/colors.h"

namespace tessarine {

namespace {

QFont headingFont() {
  QFont font = QApplication::font();
  font.setPointSizeF(QFontInfo(font).pointSizeF() * 1.6);
  font.setWeight(QFont::DemiBold);
  return font;
}

// All other colours stay those of the application.
QPalette notePalette() {
  QPalette palette;
  palette.setColor(QPalette::WindowText, secondaryText(QApplication::palette()));
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
  const QColor wanted = secondaryText(QApplication::palette());
  if (event->type() == QEvent::PaletteChange && palette().color(QPalette::WindowText) != wanted) {
    setPalette(notePalette());
  }
}

}  // namespace tessarine
