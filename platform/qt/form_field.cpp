#include "platform/qt/form_field.h"

#include <QFocusEvent>
#include <QFontMetrics>

#include <algorithm>

namespace tessarine {

void FormField::becomeFirstResponder() {
  setFocus(Qt::OtherFocusReason);
  selectAll();
}

void FormField::setDigits(int digits) {
  digits_ = digits;
  setSizePolicy(digits > 0 ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
  updateGeometry();
}

QSize FormField::sizeHint() const {
  QSize size = QLineEdit::sizeHint();
  if (digits_ > 0) {
    // What the style adds around the text is told by the least size, which is one letter wide.
    const int surroundings = minimumSizeHint().width() - fontMetrics().maxWidth();
    size.setWidth(std::max(0, surroundings) + 16 +
                  fontMetrics().horizontalAdvance(QString(digits_, QLatin1Char('0'))));
  }
  return size;
}

void FormField::focusOutEvent(QFocusEvent* event) {
  // As for a menu opened by the mouse: the selection stays, which the editing items act on.
  QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
  QLineEdit::focusOutEvent(event->reason() == Qt::MenuBarFocusReason ? &menu : event);
}

}  // namespace tessarine
