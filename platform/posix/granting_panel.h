#pragma once

#include "platform/open_panel.h"
#include "platform/posix/granted_files.h"

namespace tessarine {

// A panel whose answer is the grant for the run that asked: a folder picked before is revoked when
// the question is put, and only a confirmed folder is granted.
class GrantingPanel final : public OpenPanel {
 public:
  // Both arguments must outlive the panel.
  GrantingPanel(OpenPanel& panel, GrantedFiles& files) : panel_(panel), files_(files) {}

  OpenPanelAnswer runModal(const OpenPanelSettings& settings) override;

 private:
  OpenPanel& panel_;
  GrantedFiles& files_;
};

}  // namespace tessarine
