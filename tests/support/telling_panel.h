#pragma once

#include <cstdio>

#include "platform/open_panel.h"

namespace tessarine::testing {

// Tells on standard error that it was reached, which a test of a fatal stop can see.
class TellingPanel final : public OpenPanel {
 public:
  OpenPanelAnswer runModal(const OpenPanelSettings&) override {
    std::fputs("asked\n", stderr);
    return {PanelResponse::confirmed, "/picked"};
  }
};

}  // namespace tessarine::testing
