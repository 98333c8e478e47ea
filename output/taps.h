#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessarine {

// The weights of one output pixel add up to exactly this.
inline constexpr int weightBits = 14;
inline constexpr int weightSum = 1 << weightBits;

// Half the width of the kernel, in pixels of the coarser side.
inline constexpr double kernelRadius = 2;

// The source pixels that one output pixel is mixed from, beginning at an even one; their count is
// even too, so that they can be taken in pairs.
struct Taps {
  std::int64_t first;
  std::size_t count;
};

// One axis of a scaling: which source pixels an output pixel is mixed from, and how much of each.
// The kernel is Catmull-Rom, stretched when shrinking so that every source pixel counts; the
// weights of pixels beyond an edge go to the pixel on the edge.
class Axis {
 public:
  // Sides of 1 to `maximumPixels` pixels; throws std::bad_alloc.
  Axis(std::int64_t source, std::int64_t target);

  std::int64_t source() const noexcept { return source_; }
  std::int64_t target() const noexcept { return target_; }
  // Source pixels per output pixel.
  double scale() const noexcept { return scale_; }
  // The most weights that `taps` writes.
  std::size_t maximumTaps() const noexcept;

  // Writes the weights of the output pixel `index`. The pixel at the same distance from the other
  // end has the same weights in reverse order, exactly.
  Taps taps(std::int64_t index, std::int16_t* weights);

 private:
  // As `taps`, without the evenness.
  Taps plainTaps(std::int64_t index, std::int16_t* weights);

  std::int64_t source_;
  std::int64_t target_;
  double scale_;
  double stretch_;
  std::vector<double> sums_;
};

}  // namespace tessarine
