#include "platform/vips/decoder.h"

namespace tessarine {

Decoded decodePicture(const ByteBuffer&) {
  return {std::nullopt, "not a picture that can be read"};
}

Decoded decodePictureFile(const std::string&) {
  return {std::nullopt, "not a picture that can be read"};
}

}  // namespace tessarine
