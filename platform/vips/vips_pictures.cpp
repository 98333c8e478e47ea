#include "platform/vips/vips_pictures.h"

#include "platform/vips/decoder.h"
#include "platform/vips/formats.h"
#include "platform/vips/held_tiff.h"

namespace tessarine {

namespace {

std::vector<std::string> readableTypes() {
  std::vector<std::string> types;
  for (const Format& format : formats()) {
    if (!canBeRead(format)) continue;
    types.insert(types.end(), format.mimeTypes.begin(), format.mimeTypes.end());
  }
  return types;
}

}  // namespace

std::optional<Picture> VipsPictures::decode(const ByteBuffer& bytes) {
  return decodePicture(bytes).picture;
}

std::optional<Picture> VipsPictures::decodeFile(const std::string& path) {
  return decodePictureFile(path).picture;
}

std::optional<ByteBuffer> VipsPictures::tiffRepresentation(const Picture& picture) {
  return picture.bitmap ? writeHeldTIFF(*picture.bitmap) : std::nullopt;
}

std::vector<std::string> VipsPictures::imageTypes() {
  // A drag asks again and again, and what is installed stays.
  static const std::vector<std::string> types = readableTypes();
  return types;
}

}  // namespace tessarine
