#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tessarine {

inline constexpr std::string_view pasteboardTypeTIFF = "image/tiff";
inline constexpr std::string_view pasteboardTypeFileURL = "text/uri-list";

// One item on a pasteboard, to which data is handed when somebody asks for it.
class PasteboardItem {
 public:
  virtual ~PasteboardItem() = default;

  // Copies the data, which is valid during the call only.
  virtual void setData(std::span<const std::uint8_t> data, std::string_view type) = 0;
};

}  // namespace tessarine
