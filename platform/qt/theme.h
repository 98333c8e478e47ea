#pragma once

#include <QApplication>
#include <QObject>

namespace tessarine {

// The look of the program. A desktop's own style, palette and font are left as they are; where the
// desktop brings none, ours are used, light or dark as it asks for and when it changes its mind.
class Theme final : public QObject {
  Q_OBJECT

 public:
  explicit Theme(QApplication& application);

 private:
  void setDark(bool dark);
};

}  // namespace tessarine
