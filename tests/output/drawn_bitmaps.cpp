#include "tests/output/drawn_bitmaps.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

namespace tessarine::testing {

namespace {

std::uint8_t byte(std::int64_t value) {
  return static_cast<std::uint8_t>(value);
}

Colour softDisc(std::int64_t x, std::int64_t y) {
  const double distance = std::hypot(static_cast<double>(x - 20), static_cast<double>(y - 15));
  const auto alpha = byte(std::lround(255 * std::clamp(14.5 - distance, 0.0, 1.0)));
  return alpha == 0 ? Colour{} : Colour{230, byte(90 + x), byte(40 + 2 * y), alpha};
}

}  // namespace

Bitmap drawn(PixelSize size, const Paint& paint) {
  auto block = MemoryBlock::allocate(Bitmap::byteCount(size).value());
  auto out = block.value().bytes().begin();
  for (std::int64_t y = 0; y < size.height; ++y) {
    for (std::int64_t x = 0; x < size.width; ++x) {
      const Colour colour = paint(x, y);
      *out++ = colour.red;
      *out++ = colour.green;
      *out++ = colour.blue;
      *out++ = colour.alpha;
    }
  }
  return Bitmap(size, ByteBuffer(*std::move(block)));
}

std::vector<DrawnBitmap> drawnBitmaps() {
  std::mt19937 random(1);
  const std::pair<const char*, Paint> kinds[] = {
      {"transparent", [](auto, auto) { return Colour{}; }},
      {"white",
       [](auto, auto) {
         return Colour{255, 255, 255, 255};
       }},
      {"across",
       [](auto x, auto) {
         return Colour{byte(3 * x), byte(x), byte(-x), 255};
       }},
      {"down",
       [](auto, auto y) {
         return Colour{byte(3 * y), byte(y), byte(-y), 255};
       }},
      {"both",
       [](auto x, auto y) {
         return Colour{byte(x + y), byte(2 * x - y), 7, byte(x * y)};
       }},
      {"noise",
       [&](auto, auto) {
         const auto bits = static_cast<std::int64_t>(random());
         return Colour{byte(bits), byte(bits >> 8), byte(bits >> 16), byte(bits >> 24)};
       }},
      {"disc", softDisc},
  };
  const PixelSize sizes[] = {{1, 1},  {1, 33},  {2, 2},   {33, 1},  {3, 5},
                             {7, 16}, {16, 16}, {37, 29}, {64, 64}, {301, 17}};
  std::vector<DrawnBitmap> all;
  for (const auto& [name, paint] : kinds) {
    for (const PixelSize size : sizes) {
      all.push_back(
          {std::string(name) + "_" + std::to_string(size.width) + "x" + std::to_string(size.height),
           drawn(size, paint)});
    }
  }
  return all;
}

}  // namespace tessarine::testing
