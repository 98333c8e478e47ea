#pragma once

#include <string>
#include <utility>

#include "platform/alert.h"
#include "platform/open_panel.h"
#include "platform/workspace.h"

namespace tessarine {

// Answers the folder question with a folder known beforehand, which is created when missing.
class FolderArgument final : public OpenPanel {
 public:
  // Without a trailing separator.
  explicit FolderArgument(std::string folder) : folder_(std::move(folder)) {}

  OpenPanelAnswer runModal(const OpenPanelSettings& settings) override;

 private:
  std::string folder_;
};

// Reveals nothing.
class NoWorkspace final : public Workspace {
 public:
  void showFolder(const std::string&) override {}
};

// Prints the message on standard error.
class StandardErrorAlert final : public Alert {
 public:
  void runWarning(const std::string& message, const std::string& button) override;
};

}  // namespace tessarine
