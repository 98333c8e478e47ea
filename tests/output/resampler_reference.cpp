#include "tests/output/resampler_reference.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>

namespace tessarine::testing {

namespace {

double keys(double distance) {
  const double x = std::abs(distance);
  if (x < 1) return 1.5 * x * x * x - 2.5 * x * x + 1;
  if (x < 2) return -0.5 * x * x * x + 2.5 * x * x - 4 * x + 2;
  return 0;
}

struct WeightedPixel {
  std::int64_t pixel;
  double weight;
};

std::vector<WeightedPixel> mixture(std::int64_t source, std::int64_t target, std::int64_t index) {
  const double scale = static_cast<double>(source) / static_cast<double>(target);
  const double stretch = std::max(scale, 1.0);
  const double centre = (static_cast<double>(index) + 0.5) * scale;
  std::vector<WeightedPixel> pixels;
  double sum = 0;
  const auto end = static_cast<std::int64_t>(centre + 2 * stretch) + 1;
  for (auto pixel = static_cast<std::int64_t>(centre - 2 * stretch) - 1; pixel <= end; ++pixel) {
    const double weight = keys((static_cast<double>(pixel) + 0.5 - centre) / stretch);
    if (weight == 0) continue;
    pixels.push_back({std::clamp<std::int64_t>(pixel, 0, source - 1), weight});
    sum += weight;
  }
  for (WeightedPixel& pixel : pixels) pixel.weight /= sum;
  return pixels;
}

Premultiplied premultiplied(const std::uint8_t* pixel) {
  const double alpha = pixel[3];
  return {{pixel[0] * alpha / 255, pixel[1] * alpha / 255, pixel[2] * alpha / 255, alpha}};
}

void add(Premultiplied& sum, const Premultiplied& pixel, double weight) {
  for (int c = 0; c < 4; ++c) sum.channels[c] += weight * pixel.channels[c];
}

// As a bitmap keeps it: what overshoots is cut off, alpha at opacity and a colour at alpha.
Premultiplied rounded(const Premultiplied& pixel) {
  const double alpha = std::clamp(pixel.channels[3], 0.0, 255.0);
  const double kept = std::round(alpha);
  Premultiplied result{{0, 0, 0, kept}};
  if (kept == 0) return result;
  for (int c = 0; c < 3; ++c) {
    const double level = std::round(std::clamp(pixel.channels[c], 0.0, alpha) / alpha * 255);
    result.channels[c] = level * kept / 255;
  }
  return result;
}

}  // namespace

Picture drawnPicture(PixelSize size, const Paint& paint) {
  return {size, drawn(size, paint)};
}

Paint noise() {
  return [random = std::make_shared<std::mt19937>(1)](auto, auto) {
    const auto bits = (*random)();
    return Colour{static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
                  static_cast<std::uint8_t>(bits >> 16), static_cast<std::uint8_t>(bits >> 24)};
  };
}

Paint opaqueNoise() {
  return [any = noise()](auto x, auto y) {
    Colour colour = any(x, y);
    colour.alpha = 255;
    return colour;
  };
}

Paint photograph() {
  return [grain = noise()](auto x, auto y) {
    const Colour any = grain(x, y);
    const double soft =
        60 * std::sin(0.013 * static_cast<double>(x)) +
        40 * std::sin(0.05 * static_cast<double>(y) + 0.02 * static_cast<double>(x));
    const double hard = (x / 37 + y / 53) % 4 == 0 ? 40 : 0;
    const auto level = [&](std::uint8_t bits) {
      return static_cast<std::uint8_t>(110 + soft + hard + bits % 16);
    };
    return Colour{level(any.red), level(any.green), level(any.blue), 255};
  };
}

Paint disc(PixelSize size) {
  const auto width = static_cast<double>(size.width);
  const auto height = static_cast<double>(size.height);
  return [=](auto x, auto y) {
    const double across = (static_cast<double>(x) + 0.5) / width;
    const double down = (static_cast<double>(y) + 0.5) / height;
    const double inside = 0.45 - std::hypot(across - 0.5, down - 0.5);
    const double alpha = std::clamp(255 * (0.5 + inside * width), 0.0, 255.0);
    return Colour{static_cast<std::uint8_t>(255 * across), static_cast<std::uint8_t>(255 * down),
                  static_cast<std::uint8_t>((x / 8 + y / 8) % 2 * 255),
                  static_cast<std::uint8_t>(alpha)};
  };
}

std::vector<Premultiplied> referencePixels(const Bitmap& source, PixelSize size) {
  const PixelSize from = source.size();
  const auto width = static_cast<std::size_t>(size.width);
  const auto height = static_cast<std::size_t>(size.height);
  const auto rows = static_cast<std::size_t>(from.height);

  std::vector<std::vector<WeightedPixel>> columns;
  for (std::int64_t x = 0; x < size.width; ++x)
    columns.push_back(mixture(from.width, size.width, x));
  std::vector<Premultiplied> narrowed(rows * width);
  for (std::size_t y = 0; y < rows; ++y) {
    const std::uint8_t* row = source.row(static_cast<std::int64_t>(y)).data();
    for (std::size_t x = 0; x < width; ++x) {
      for (const auto& [pixel, weight] : columns[x]) {
        add(narrowed[y * width + x], premultiplied(row + 4 * pixel), weight);
      }
    }
  }
  std::vector<Premultiplied> result(width * height);
  for (std::size_t y = 0; y < height; ++y) {
    for (const auto& [pixel, weight] :
         mixture(from.height, size.height, static_cast<std::int64_t>(y))) {
      const std::size_t row = static_cast<std::size_t>(pixel) * width;
      for (std::size_t x = 0; x < width; ++x) {
        add(result[y * width + x], narrowed[row + x], weight);
      }
    }
  }
  std::ranges::transform(result, result.begin(), rounded);
  return result;
}

double decibels(const Bitmap& bitmap, const std::vector<Premultiplied>& reference) {
  double squares = 0;
  for (std::size_t i = 0; i < reference.size(); ++i) {
    const Premultiplied pixel = premultiplied(&bitmap.pixels()[4 * i]);
    for (int c = 0; c < 4; ++c) {
      const double difference = pixel.channels[c] - reference[i].channels[c];
      squares += difference * difference;
    }
  }
  if (squares == 0) return std::numeric_limits<double>::infinity();
  return 10 * std::log10(255.0 * 255 * 4 * static_cast<double>(reference.size()) / squares);
}

}  // namespace tessarine::testing
