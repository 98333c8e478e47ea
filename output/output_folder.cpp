#include "output/output_folder.h"

#include "platform/open_panel.h"
#include "platform/workspace.h"

namespace tessarine {

std::string chooseOutputDirectory(Platform& platform) {
  const OpenPanelSettings settings{
      .title = "Choose directory to save new app icons",
      .showsResizeIndicator = true,
      .showsHiddenFiles = false,
      .canChooseFiles = false,
      .canChooseDirectories = true,
      .canCreateDirectories = true,
  };
  const OpenPanelAnswer answer = platform.openPanel.runModal(settings);
  // A panel may leave a path behind after a cancel, so the response is asked first.
  if (answer.response != PanelResponse::confirmed) return {};
  return answer.path.value_or(std::string());
}

void revealInFileManager(Platform& platform, const std::string& rootPath) {
  platform.workspace.showFolder(rootPath);
}

}  // namespace tessarine
