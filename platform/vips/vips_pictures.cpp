#include "platform/vips/vips_pictures.h"

#include "platform/vips/decoder.h"
#include "platform/vips/formats.h"
#include "platform/vips/held_tiff.h"
#include "platform/vips/vips_library.h"

namespace tessarine {

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
  std::vector<std::string> types;
  if (!startVips()) return types;
  for (const Format& format : formats()) {
    if (!hasLoader(format.loader)) continue;
    types.insert(types.end(), format.mimeTypes.begin(), format.mimeTypes.end());
  }
  return types;
}

}  // namespace tessarine
