#pragma once

namespace tessarine {

// The controller of the custom-sizes screen; its view holds the `CustomDragView`.
class CustomVC {
 public:
  void viewDidLoad() {}
};

}  // namespace tessarine
