#include "benchmarks/probes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace tessarine::benchmarks {

namespace {

constexpr std::int64_t side = 1024;
constexpr double discRadius = 400;
constexpr int darkGrey = 64;
constexpr int lightGrey = 192;

Bitmap drawn(std::int64_t pixels, const std::function<std::array<int, 4>(double, double)>& colour) {
  auto block = MemoryBlock::allocate(Bitmap::byteCount({pixels, pixels}).value()).value();
  auto out = block.bytes().begin();
  for (std::int64_t y = 0; y < pixels; ++y) {
    for (std::int64_t x = 0; x < pixels; ++x) {
      for (const int sample : colour(static_cast<double>(x) + 0.5, static_cast<double>(y) + 0.5)) {
        *out++ = static_cast<std::uint8_t>(sample);
      }
    }
  }
  return Bitmap({pixels, pixels}, ByteBuffer(std::move(block)));
}

}  // namespace

Bitmap drawEdge() {
  return drawn(side, [](double x, double y) {
    const int grey = x < side / 2.0 + (y - side / 2.0) / 16 ? darkGrey : lightGrey;
    return std::array{grey, grey, grey, 255};
  });
}

Bitmap drawDisc() {
  return drawn(side, [](double x, double y) {
    const bool inside = std::hypot(x - side / 2.0, y - side / 2.0) < discRadius;
    return inside ? std::array{250, 200, 40, 255} : std::array{0, 0, 0, 0};
  });
}

Bitmap drawBlob() {
  return drawn(64, [](double x, double y) {
    const double distance = std::hypot(x - 32, y - 32);
    const int grey = static_cast<int>(std::lround(255 * std::exp(-distance * distance / 100)));
    return std::array{grey, grey, grey, 255};
  });
}

double overshoot(const Bitmap& edge) {
  int beyond = 0;
  for (std::size_t i = 0; i < edge.pixels().size(); i += Bitmap::bytesPerPixel) {
    const int grey = edge.pixels()[i];
    beyond = std::max({beyond, darkGrey - grey, grey - lightGrey});
  }
  return 100.0 * beyond / (lightGrey - darkGrey);
}

int ringPixels(const Bitmap& disc) {
  const double middle = static_cast<double>(disc.size().width) / 2;
  const double radius = discRadius * static_cast<double>(disc.size().width) / side;
  int count = 0;
  for (std::int64_t y = 0; y < disc.size().height; ++y) {
    for (std::int64_t x = 0; x < disc.size().width; ++x) {
      // The pixel's corner that is nearest to the middle of the disc.
      const double nearX = std::max(0.0, std::abs(static_cast<double>(x) + 0.5 - middle) - 0.5);
      const double nearY = std::max(0.0, std::abs(static_cast<double>(y) + 0.5 - middle) - 0.5);
      const int alpha = disc.row(y)[static_cast<std::size_t>(x) * Bitmap::bytesPerPixel + 3];
      if (std::hypot(nearX, nearY) > radius && alpha >= 1 && alpha <= 7) ++count;
    }
  }
  return count;
}

double shift(const Bitmap& blob) {
  double sum = 0;
  double moment = 0;
  for (std::int64_t y = 0; y < blob.size().height; ++y) {
    for (std::int64_t x = 0; x < blob.size().width; ++x) {
      const double grey = blob.row(y)[static_cast<std::size_t>(x) * Bitmap::bytesPerPixel];
      sum += grey;
      moment += grey * (static_cast<double>(x) + 0.5);
    }
  }
  return moment / sum - static_cast<double>(blob.size().width) / 2;
}

}  // namespace tessarine::benchmarks
