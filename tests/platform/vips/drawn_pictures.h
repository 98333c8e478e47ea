#pragma once

#include <cstdint>
#include <functional>

#include "platform/fatal_stop.h"
#include "platform/picture.h"

namespace tessarine::testing {

struct Pixel {
  std::uint8_t red, green, blue, alpha;
  friend bool operator==(const Pixel&, const Pixel&) = default;
};

inline Pixel pixelAt(const Bitmap& bitmap, std::int64_t x, std::int64_t y) {
  const auto at = bitmap.row(y).subspan(static_cast<std::size_t>(x) * Bitmap::bytesPerPixel);
  return {at[0], at[1], at[2], at[3]};
}

inline Bitmap draw(PixelSize size, const std::function<Pixel(std::int64_t, std::int64_t)>& colour) {
  auto block = required(MemoryBlock::allocate(required(Bitmap::byteCount(size))));
  auto to = block.bytes().begin();
  for (std::int64_t y = 0; y < size.height; ++y) {
    for (std::int64_t x = 0; x < size.width; ++x) {
      const Pixel pixel = colour(x, y);
      for (const auto sample : {pixel.red, pixel.green, pixel.blue, pixel.alpha}) *to++ = sample;
    }
  }
  return Bitmap(size, ByteBuffer(std::move(block)));
}

// Every pixel and every sample differs from its neighbours; alpha takes all values, 0 included.
inline Bitmap drawVaried(PixelSize size) {
  return draw(size, [](std::int64_t x, std::int64_t y) {
    const auto byte = [](std::int64_t value) { return static_cast<std::uint8_t>(value); };
    return Pixel{byte(x * 7 + 1), byte(y * 5 + 2), byte(x * y + 3), byte(x * 17 + y * 29)};
  });
}

}  // namespace tessarine::testing
