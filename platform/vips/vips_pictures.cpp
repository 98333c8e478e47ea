#include "platform/vips/vips_pictures.h"

namespace tessarine {

std::optional<Picture> VipsPictures::decode(const ByteBuffer&) {
  return std::nullopt;
}
std::optional<Picture> VipsPictures::decodeFile(const std::string&) {
  return std::nullopt;
}
std::optional<ByteBuffer> VipsPictures::tiffRepresentation(const Picture&) {
  return std::nullopt;
}
std::vector<std::string> VipsPictures::imageTypes() {
  return {};
}

}  // namespace tessarine
