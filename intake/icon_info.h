#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "intake/keyed_coding.h"
#include "platform/bytes.h"
#include "platform/pasteboard.h"
#include "platform/picture.h"
#include "platform/pictures.h"

namespace tessarine {

// The identifier under which the finished program is installed.
inline constexpr std::string_view bundleIdentifier = "org.tessarine.tessarine";

// The program's own pasteboard type. Without an identifier it is the suffix alone.
std::string customPasteboardType(std::optional<std::string_view> identifier = bundleIdentifier);

// The source picture of a screen.
class IconInfo {
 public:
  IconInfo() = default;
  // Throws what the decoder throws.
  explicit IconInfo(const KeyedDecoder& decoder);

  // The picture's bytes in TIFF form.
  std::optional<ByteBuffer> imageData;

  // Decoded afresh from the bytes; nothing without bytes or when they do not decode.
  std::optional<Picture> image(Pictures& pictures) const;

  // Encodes nothing at all while no picture is held. Throws what the encoder throws.
  void encode(KeyedEncoder& encoder) const;

  // The types that the record can be written as, the preferred one first.
  std::vector<std::string> writableTypesForPasteboard() const;
  // Never a list: every type is delivered by `providePasteboardData`.
  std::optional<std::string> pasteboardPropertyListForType(std::string_view type) const;
  // Hands the item the data of the type asked for; nothing for a type that is not offered.
  void providePasteboardData(PasteboardItem& item, std::string_view type) const;
};

}  // namespace tessarine
