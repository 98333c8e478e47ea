#include "platform/picture.h"

#include <utility>

#include "platform/fatal_stop.h"

namespace tessarine {

std::optional<std::size_t> Bitmap::byteCount(PixelSize size) noexcept {
  if (size.width <= 0 || size.height <= 0) return std::nullopt;
  // Dividing instead of multiplying: the product of two int64 may overflow.
  if (size.width > maximumPixels / size.height) return std::nullopt;
  return static_cast<std::size_t>(size.width * size.height) * bytesPerPixel;
}

Bitmap::Bitmap(PixelSize size, ByteBuffer pixels) : size_(size), pixels_(std::move(pixels)) {
  require(byteCount(size_) == pixels_.bytes().size());
}

std::span<const std::uint8_t> Bitmap::row(std::int64_t y) const noexcept {
  const auto rowBytes = static_cast<std::size_t>(size_.width) * bytesPerPixel;
  return pixels().subspan(static_cast<std::size_t>(y) * rowBytes, rowBytes);
}

}  // namespace tessarine
