#pragma once

#include <QLabel>

namespace tessarine {

// The title of a screen: larger and bolder than the application's font.
class HeadingLabel final : public QLabel {
  Q_OBJECT

 public:
  explicit HeadingLabel(QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;
};

// Words beside the main text: softer than the application's text colour.
class NoteLabel final : public QLabel {
  Q_OBJECT

 public:
  explicit NoteLabel(QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;
};

}  // namespace tessarine
