#include "intake/icon_info.h"

#include <cstdint>
#include <exception>

namespace tessarine {

namespace {

constexpr std::string_view imageDataKey = "imageData";

std::optional<std::string> jsonOf(const IconInfo& iconInfo) {
  try {
    JSONEncoder encoder;
    iconInfo.encode(encoder);
    return encoder.text();
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace

std::string customPasteboardType(std::optional<std::string_view> identifier) {
  return std::string(identifier.value_or("")) + ".avatarInfoCustomUTI";
}

IconInfo::IconInfo(const KeyedDecoder& decoder)
    : imageData(decoder.decodeIfPresent(imageDataKey)) {}

std::optional<Picture> IconInfo::image(Pictures& pictures) const {
  if (!imageData) return std::nullopt;
  return pictures.decode(*imageData);
}

void IconInfo::encode(KeyedEncoder& encoder) const {
  if (imageData) encoder.encode(*imageData, imageDataKey);
}

std::vector<std::string> IconInfo::writableTypesForPasteboard() const {
  std::vector<std::string> types{customPasteboardType()};
  if (imageData) types.emplace_back(pasteboardTypeTIFF);
  return types;
}

std::optional<std::string> IconInfo::pasteboardPropertyListForType(std::string_view) const {
  return std::nullopt;
}

void IconInfo::providePasteboardData(PasteboardItem& item, std::string_view type) const {
  if (type == customPasteboardType()) {
    // A failure is dropped: the item then has no data of this type.
    if (const auto json = jsonOf(*this)) {
      item.setData({reinterpret_cast<const std::uint8_t*>(json->data()), json->size()}, type);
    }
  } else if (type == pasteboardTypeTIFF && imageData) {
    item.setData(imageData->bytes(), type);
  }
}

}  // namespace tessarine
