#include "output/taps.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace tessarine {

namespace {

// Catmull-Rom: the cubic of Keys with a = -0.5.
double kernel(double distance) {
  const double x = std::abs(distance);
  if (x < 1) return (1.5 * x - 2.5) * x * x + 1;
  if (x < kernelRadius) return ((-0.5 * x + 2.5) * x - 4) * x + 2;
  return 0;
}

void mirrorFirstHalf(std::span<std::int16_t> weights) {
  const std::size_t half = weights.size() / 2;
  int sum = 0;
  for (std::size_t i = 0; i < half; ++i) {
    weights[weights.size() - 1 - i] = weights[i];
    sum += 2 * weights[i];
  }
  if (weights.size() % 2 != 0) weights[half] = static_cast<std::int16_t>(weightSum - sum);
}

}  // namespace

Axis::Axis(std::int64_t source, std::int64_t target)
    : source_(source),
      target_(target),
      scale_(static_cast<double>(source) / static_cast<double>(target)),
      stretch_(std::max(scale_, 1.0)),
      sums_(maximumTaps()) {}

std::size_t Axis::maximumTaps() const noexcept {
  const auto touched = static_cast<std::size_t>(std::ceil(2 * kernelRadius * stretch_));
  // One more for rounding and one to begin at an even pixel, made even.
  return (touched + 3) / 2 * 2;
}

Taps Axis::plainTaps(std::int64_t index, std::int16_t* weights) {
  // A whole pixel and what lies beyond it, so that the middle of an axis comes out exactly: a
  // double does not hold the product.
  const std::int64_t product = (2 * index + 1) * source_;
  const std::int64_t whole = product / (2 * target_);
  const double offset =
      static_cast<double>(product % (2 * target_)) / static_cast<double>(2 * target_) - 0.5;
  const double radius = kernelRadius * stretch_;
  const std::int64_t begin = whole + static_cast<std::int64_t>(std::floor(offset - radius)) + 1;
  const std::int64_t end = whole + static_cast<std::int64_t>(std::ceil(offset + radius));
  const std::int64_t first = std::clamp<std::int64_t>(begin, 0, source_ - 1);
  const std::int64_t last = std::clamp<std::int64_t>(end - 1, 0, source_ - 1);
  const auto count = static_cast<std::size_t>(last - first + 1);

  double sum = 0;
  for (std::int64_t pixel = begin; pixel < end; ++pixel) {
    sum += kernel((static_cast<double>(pixel - whole) - offset) / stretch_);
    sums_[static_cast<std::size_t>(std::clamp(pixel, first, last) - first)] = sum;
  }
  // Rounding the running sums and not the weights makes these add up exactly, and what one loses
  // its neighbour gains.
  std::int64_t before = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const auto rounded = static_cast<std::int64_t>(std::nearbyint(sums_[i] / sum * weightSum));
    weights[i] = static_cast<std::int16_t>(rounded - before);
    before = rounded;
  }
  return {first, count};
}

Taps Axis::taps(std::int64_t index, std::int16_t* weights) {
  const std::int64_t opposite = target_ - 1 - index;
  Taps taps = plainTaps(std::min(index, opposite), weights);
  if (index == opposite) {
    mirrorFirstHalf({weights, taps.count});
  } else if (index > opposite) {
    std::reverse(weights, weights + taps.count);
    taps.first = source_ - taps.first - static_cast<std::int64_t>(taps.count);
  }
  if (taps.first % 2 != 0) {
    std::copy_backward(weights, weights + taps.count, weights + taps.count + 1);
    weights[0] = 0;
    --taps.first;
    ++taps.count;
  }
  if (taps.count % 2 != 0) weights[taps.count++] = 0;
  return taps;
}

}  // namespace tessarine
