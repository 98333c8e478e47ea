#pragma once

#include <string>

#include "platform/files.h"
#include "platform/open_panel.h"

namespace tessarine {

// Writes only beneath the folder of the present grant, which is held as an open descriptor: a
// folder that is renamed meanwhile is still the one that was granted. Without a grant, and for any
// path that leads out of the folder, every write fails.
class GrantedFiles final : public Files {
 public:
  GrantedFiles() = default;
  ~GrantedFiles() override;
  GrantedFiles(const GrantedFiles&) = delete;
  GrantedFiles& operator=(const GrantedFiles&) = delete;

  // Replaces the present grant. Paths to write must begin with this text and a separator. A folder
  // that cannot be opened grants nothing.
  void grant(const std::string& folder);
  void revoke();

  std::optional<std::string> writeInPlace(const std::string& path,
                                          std::span<const std::uint8_t> bytes) override;
  std::optional<std::string> writeAtomically(const std::string& path,
                                             std::span<const std::uint8_t> bytes) override;

 private:
  std::string folder_;
  int descriptor_ = -1;
};

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
