#pragma once

#include <QPushButton>

#include "platform/controls.h"

namespace tessarine {

// A button whose tool tip tells, while it is disabled, what it waits for.
class ActionButton : public QPushButton, public Button {
  Q_OBJECT
  Q_PROPERTY(QString waitingToolTip READ waitingToolTip WRITE setWaitingToolTip)

 public:
  explicit ActionButton(QWidget* parent = nullptr);

  void setEnabled(bool enabled) override { QPushButton::setEnabled(enabled); }

  QString waitingToolTip() const { return waitingToolTip_; }
  void setWaitingToolTip(const QString& text);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QString waitingToolTip_;
};

}  // namespace tessarine
