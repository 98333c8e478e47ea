#pragma once

#include <cstddef>
#include <cstdint>

#include "output/scratch.h"
#include "platform/picture.h"

namespace tessarine {

// The rows of a bitmap two by two, as `addRows` takes them; on demand with every square of four
// pixels already made one, for a scaling that makes far fewer pixels of them yet.
class SourceRows {
 public:
  // How often, 0 or 1 times, both sides may be halved without being seen in a scaling to `size`:
  // the mean of a square stands for its pixels as long as the kernel hardly changes over them.
  static int halvings(PixelSize source, PixelSize size) noexcept;

  // `bitmap` must outlive this; its sides must be even if they are halved. At most `pixelsAtOnce`
  // are loaded at once. Throws std::bad_alloc.
  SourceRows(const Bitmap& bitmap, int halvings, std::size_t pixelsAtOnce);

  // Pixels of the two rows `2 * pair` and below it, from `x` on. Below an odd number of rows the
  // last one stands in for the missing one.
  void loadPair(std::int64_t pair, std::size_t x, std::size_t pixels, std::int16_t* rowPair);

 private:
  const std::uint8_t* levels(std::int64_t y, std::size_t x) const noexcept;
  void loadHalved(std::int64_t y, std::size_t x, std::size_t pixels, std::int16_t* samples) const;

  const Bitmap& bitmap_;
  int halvings_;
  std::int64_t lastRow_;
  Scratch<std::int16_t> upper_;
  Scratch<std::int16_t> lower_;
};

}  // namespace tessarine
