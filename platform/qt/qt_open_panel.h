#pragma once

#include "platform/open_panel.h"

namespace tessarine {

// The desktop's own dialog where it has one, else Qt's.
class QtOpenPanel final : public OpenPanel {
 public:
  OpenPanelAnswer runModal(const OpenPanelSettings& settings) override;
};

}  // namespace tessarine
