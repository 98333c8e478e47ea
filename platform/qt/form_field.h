#pragma once

#include <QLineEdit>

#include "platform/controls.h"

namespace tessarine {

// A line of text that takes no drops: a file dropped on it is for the screen around it.
class FormField final : public QLineEdit, public TextField {
  Q_OBJECT
  Q_PROPERTY(int digits READ digits WRITE setDigits)

 public:
  explicit FormField(QWidget* parent = nullptr) : QLineEdit(parent) { setAcceptDrops(false); }

  std::string stringValue() override { return text().toStdString(); }
  void becomeFirstResponder() override;

  // The number of digits that the field is wide; 0 for a field that takes the place there is.
  int digits() const { return digits_; }
  void setDigits(int digits);

  QSize sizeHint() const override;

 protected:
  void focusOutEvent(QFocusEvent* event) override;

 private:
  int digits_ = 0;
};

}  // namespace tessarine
