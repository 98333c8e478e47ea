#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/bytes.h"

namespace tessarine {

// Width and height, in pixels or in points as the holder says. Any value is allowed; what cannot
// be made of it is told by `Bitmap::byteCount`.
struct PixelSize {
  std::int64_t width = 0;
  std::int64_t height = 0;

  friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

// The most pixels that a bitmap may have: 16,383 squared, a limit that image tools share.
inline constexpr std::int64_t maximumPixels = 268'402'689;

// Red, green, blue and alpha of 8 bits each, interleaved; alpha is not multiplied in; sRGB.
// Rows from the top, without padding.
class Bitmap {
 public:
  static constexpr std::size_t bytesPerPixel = 4;

  // The bytes that a bitmap of this size takes; nothing for a size that cannot be made: a side
  // that is not positive, or more than `maximumPixels` pixels.
  static std::optional<std::size_t> byteCount(PixelSize size) noexcept;

  // `pixels` must hold exactly `byteCount(size)` bytes.
  Bitmap(PixelSize size, ByteBuffer pixels);

  PixelSize size() const noexcept { return size_; }
  std::span<const std::uint8_t> pixels() const noexcept { return pixels_.bytes(); }
  // `y` counts from the top and must be below the height.
  std::span<const std::uint8_t> row(std::int64_t y) const noexcept;

 private:
  PixelSize size_;
  ByteBuffer pixels_;
};

// A picture of a size in points (one point per pixel in every picture that the program makes). It
// has no bitmap when none could be made.
struct Picture {
  PixelSize points;
  std::optional<Bitmap> bitmap;
};

}  // namespace tessarine
