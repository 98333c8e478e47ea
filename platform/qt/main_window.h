#pragma once

#include <QMainWindow>
#include <QStackedWidget>

#include "platform/qt/screen.h"

namespace tessarine {

// The program's window: its menus, and the two screens, of which one is shown.
class MainWindow final : public QMainWindow {
  Q_OBJECT

 public:
  // Takes both screens over. The first is shown at the start; Esc and the platform's key for going
  // back lead from the second to it.
  MainWindow(Screen* first, Screen* second);

 private:
  void addMenus();
  void showAbout();

  QStackedWidget* screens_;
};

}  // namespace tessarine
