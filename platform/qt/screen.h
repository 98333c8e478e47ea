#pragma once

#include <QWidget>

namespace tessarine {

// One screen of the window. Its interface description says which control leads to the other one.
class Screen final : public QWidget {
  Q_OBJECT

 public:
  explicit Screen(QWidget* parent = nullptr) : QWidget(parent) {}

 signals:
  void otherScreenWanted();
};

}  // namespace tessarine
