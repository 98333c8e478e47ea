#pragma once

#include <QLineEdit>

#include "platform/controls.h"

namespace tessarine {

// A line of text that takes no drops: a file dropped on it is for the screen around it.
class FormField final : public QLineEdit, public TextField {
  Q_OBJECT

 public:
  explicit FormField(QWidget* parent = nullptr) : QLineEdit(parent) { setAcceptDrops(false); }

  std::string stringValue() override { return text().toStdString(); }
  void becomeFirstResponder() override {
    setFocus(Qt::OtherFocusReason);
    selectAll();
  }
};

}  // namespace tessarine
