#pragma once

#include <cstddef>
#include <cstdint>

#include "output/scratch.h"
#include "platform/picture.h"

namespace tessarine {

// The most pixels of a row that are loaded at once: a strip that stays in the fastest cache.
inline constexpr std::size_t stripPixels = 256;

// The rows of a bitmap two by two, as `addRows` takes them; on demand with every square of four
// pixels already made one, for a scaling that makes far fewer pixels of them yet.
class SourceRows {
 public:
  // Whether both sides may be halved without being seen in a scaling to `size`: the mean of a
  // square stands for its pixels as long as the kernel hardly changes over them.
  static bool mayBeHalved(PixelSize source, PixelSize size) noexcept;

  // `bitmap` must outlive this; its sides must be even if they are halved. Throws std::bad_alloc.
  SourceRows(const Bitmap& bitmap, bool halved);

  // At most `stripPixels` of the two rows `2 * pair` and below it, from `x` on. Below an odd number
  // of rows the last one stands in for the missing one.
  void loadPair(std::int64_t pair, std::size_t x, std::size_t pixels, std::int16_t* rowPair);

 private:
  const std::uint8_t* levels(std::int64_t y, std::size_t x) const noexcept;
  void loadHalved(std::int64_t y, std::size_t x, std::size_t pixels, std::int16_t* samples) const;

  const Bitmap& bitmap_;
  bool halved_;
  std::int64_t lastRow_;
  Scratch<std::int16_t> upper_;
  Scratch<std::int16_t> lower_;
};

}  // namespace tessarine
