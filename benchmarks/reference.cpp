#include "benchmarks/reference.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessarine::benchmarks {

namespace {

constexpr std::size_t channels = 4;

struct Kernel {
  double radius;
  double (*weight)(double distance);
};

// The cubic of Mitchell and Netravali with its two parameters.
template <int bThirds, int cThirds, int divisor = 3>
double cubic(double x) {
  constexpr double b = double{bThirds} / divisor;
  constexpr double c = double{cThirds} / divisor;
  if (x < 1)
    return ((12 - 9 * b - 6 * c) * x * x * x + (-18 + 12 * b + 6 * c) * x * x + 6 - 2 * b) / 6;
  if (x >= 2) return 0;
  return ((-b - 6 * c) * x * x * x + (6 * b + 30 * c) * x * x + (-12 * b - 48 * c) * x + 8 * b +
          24 * c) /
         6;
}

double sinc(double x) {
  return x == 0 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
}

Kernel kernelOf(const std::string& name) {
  if (name == "triangle") return {1, [](double x) { return std::max(0.0, 1 - x); }};
  if (name == "catmull-rom") return {2, cubic<0, 1, 2>};
  if (name == "mitchell") return {2, cubic<1, 1>};
  return {3, [](double x) { return x < 3 ? sinc(x) * sinc(x / 3) : 0.0; }};
}

struct Taps {
  std::int64_t first;
  std::vector<double> weights;
};

Taps tapsAt(std::int64_t i, double scale, const std::string& kernel) {
  const double centre = (static_cast<double>(i) + 0.5) * scale;
  const double widened = std::max(scale, 1.0);
  const bool box = kernel == "box";
  const Kernel shape = box ? Kernel{0.5, nullptr} : kernelOf(kernel);
  const double reach = box ? scale / 2 : shape.radius * widened;
  Taps taps{static_cast<std::int64_t>(std::floor(centre - reach)), {}};
  double sum = 0;
  for (std::int64_t x = taps.first; static_cast<double>(x) < centre + reach; ++x) {
    const auto left = static_cast<double>(x);
    const double weight =
        box ? std::max(0.0, std::min(left + 1, centre + reach) - std::max(left, centre - reach))
            : shape.weight(std::abs(left + 0.5 - centre) / widened);
    taps.weights.push_back(weight);
    sum += weight;
  }
  for (double& weight : taps.weights) weight /= sum;
  return taps;
}

// Scales the width and turns the result on its side, so that doing it twice scales both axes.
Plane scaledAndTurned(const Plane& source, std::int64_t width, const std::string& kernel) {
  const auto [sourceWidth, height] = source.size;
  Plane result{{height, width},
               std::vector<double>(static_cast<std::size_t>(width * height) * channels)};
  const double scale = static_cast<double>(sourceWidth) / static_cast<double>(width);
  for (std::int64_t x = 0; x < width; ++x) {
    const Taps taps = tapsAt(x, scale, kernel);
    for (std::int64_t y = 0; y < height; ++y) {
      double* out = &result.values[static_cast<std::size_t>(x * height + y) * channels];
      for (std::size_t tap = 0; tap < taps.weights.size(); ++tap) {
        const auto from = std::clamp<std::int64_t>(taps.first + static_cast<std::int64_t>(tap), 0,
                                                   sourceWidth - 1);
        const double* in =
            &source.values[static_cast<std::size_t>(y * sourceWidth + from) * channels];
        for (std::size_t c = 0; c < channels; ++c) out[c] += taps.weights[tap] * in[c];
      }
    }
  }
  return result;
}

}  // namespace

Plane premultiplied(const Bitmap& bitmap) {
  Plane plane{bitmap.size(), {bitmap.pixels().begin(), bitmap.pixels().end()}};
  for (std::size_t i = 0; i < plane.values.size(); i += channels) {
    for (std::size_t c = 0; c < 3; ++c) plane.values[i + c] *= plane.values[i + 3] / 255;
  }
  return plane;
}

Plane scaled(const Plane& source, PixelSize size, const std::string& kernel) {
  Plane result = scaledAndTurned(scaledAndTurned(source, size.width, kernel), size.height, kernel);
  for (std::size_t i = 0; i < result.values.size(); i += channels) {
    double& alpha = result.values[i + 3];
    alpha = std::clamp(alpha, 0.0, 255.0);
    for (std::size_t c = 0; c < 3; ++c)
      result.values[i + c] = std::clamp(result.values[i + c], 0.0, alpha);
  }
  return result;
}

double signalToNoise(const Plane& actual, const Plane& expected) {
  double squares = 0;
  for (std::size_t i = 0; i < expected.values.size(); ++i) {
    squares += std::pow(actual.values[i] - expected.values[i], 2);
  }
  return 10 * std::log10(255 * 255 * static_cast<double>(expected.values.size()) / squares);
}

}  // namespace tessarine::benchmarks
