#include "platform/posix/granting_panel.h"

namespace tessarine {

OpenPanelAnswer GrantingPanel::runModal(const OpenPanelSettings& settings) {
  files_.revoke();
  OpenPanelAnswer answer = panel_.runModal(settings);
  if (answer.response == PanelResponse::confirmed && answer.path) files_.grant(*answer.path);
  return answer;
}

}  // namespace tessarine
