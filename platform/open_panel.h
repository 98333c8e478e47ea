#pragma once

#include <optional>
#include <string>

namespace tessarine {

struct OpenPanelSettings {
  std::string title;
  bool showsResizeIndicator = false;
  bool showsHiddenFiles = false;
  bool canChooseFiles = true;
  bool canChooseDirectories = false;
  bool canCreateDirectories = false;

  friend bool operator==(const OpenPanelSettings&, const OpenPanelSettings&) = default;
};

enum class PanelResponse { confirmed, cancelled };

struct OpenPanelAnswer {
  PanelResponse response = PanelResponse::cancelled;
  // The chosen path without a trailing separator. A panel may leave a path behind after a cancel,
  // and may confirm without one.
  std::optional<std::string> path;
};

// The platform's modal question for a file or a folder.
class OpenPanel {
 public:
  virtual ~OpenPanel() = default;

  // Returns when the user has answered. Each call is a new panel.
  virtual OpenPanelAnswer runModal(const OpenPanelSettings& settings) = 0;
};

}  // namespace tessarine
