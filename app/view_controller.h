#pragma once

#include <any>

namespace tessarine {

// The controller of the main screen; its view holds the `DragView`.
class ViewController {
 public:
  void viewDidLoad() {}

  // Any object or none; nothing follows from setting it.
  std::any representedObject;
};

}  // namespace tessarine
