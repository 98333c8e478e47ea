#pragma once

#include <string>

namespace tessarine {

// The desktop's file manager.
class Workspace {
 public:
  virtual ~Workspace() = default;

  // Opens a window on the folder with nothing selected. A path that cannot be shown, the empty one
  // included, is passed over silently.
  virtual void showFolder(const std::string& rootPath) = 0;
};

}  // namespace tessarine
