#include "output/resampler.h"

#include <utility>

namespace tessarine {

std::optional<Picture> resizedImage(const Picture&, std::int64_t width, std::int64_t height) {
  Picture result{{width, height}, std::nullopt};
  if (const auto bytes = Bitmap::byteCount(result.points)) {
    if (auto block = MemoryBlock::allocate(*bytes)) {
      result.bitmap.emplace(result.points, ByteBuffer(*std::move(block)));
    }
  }
  return result;
}

}  // namespace tessarine
