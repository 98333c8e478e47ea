#include "platform/headless/headless_host.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace tessarine {

OpenPanelAnswer FolderArgument::runModal(const OpenPanelSettings&) {
  // Where the folder cannot be created there is nothing to grant, and every write fails.
  std::error_code ignored;
  std::filesystem::create_directories(folder_, ignored);
  return {PanelResponse::confirmed, folder_};
}

void StandardErrorAlert::runWarning(const std::string& message, const std::string&) {
  std::fprintf(stderr, "%s\n", message.c_str());
}

}  // namespace tessarine
