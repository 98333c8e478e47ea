#include "platform/qt/action_button.h"

#include <QEvent>

namespace tessarine {

ActionButton::ActionButton(QWidget* parent) : QPushButton(parent) {
  // Return presses the button that has the focus.
  setAutoDefault(true);
}

void ActionButton::setWaitingToolTip(const QString& text) {
  waitingToolTip_ = text;
  setToolTip(isEnabled() ? QString() : waitingToolTip_);
}

void ActionButton::changeEvent(QEvent* event) {
  QPushButton::changeEvent(event);
  if (event->type() == QEvent::EnabledChange) {
    setToolTip(isEnabled() ? QString() : waitingToolTip_);
  }
}

}  // namespace tessarine
