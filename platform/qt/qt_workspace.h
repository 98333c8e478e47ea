#pragma once

#include "platform/workspace.h"

namespace tessarine {

// The file manager that the session bus knows, without waiting for its answer; where there is none,
// whatever the desktop opens folders with.
class QtWorkspace final : public Workspace {
 public:
  void showFolder(const std::string& rootPath) override;
};

}  // namespace tessarine
