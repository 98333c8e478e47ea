#include "output/png_encoder.h"

namespace tessarine {

std::optional<ByteBuffer> encodePNG(const Bitmap&) {
  return std::nullopt;
}

}  // namespace tessarine
