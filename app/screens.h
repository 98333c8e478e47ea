#pragma once

#include <memory>

#include "platform/platform.h"
#include "platform/qt/main_window.h"

namespace tessarine {

// The window with both screens: the widgets of the interface descriptions, with their outlets and
// actions connected.
class Screens {
 public:
  // The platform must outlive the screens.
  explicit Screens(Platform& platform);
  ~Screens();
  Screens(const Screens&) = delete;
  Screens& operator=(const Screens&) = delete;

  MainWindow& window() { return *window_; }

 private:
  struct Main;
  struct Custom;

  // The window goes first: it owns the widgets that the screens' outlets refer to.
  std::unique_ptr<Main> main_;
  std::unique_ptr<Custom> custom_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace tessarine
