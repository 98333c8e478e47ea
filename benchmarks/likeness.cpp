// likeness LARGE SMALL PICTURE...
// Scores small pictures against a vector that was drawn a whole number of times larger (LARGE). The
// truth is the mean of the large pixels that each small pixel covers; it is written to SMALL.
// Prints a line for each PICTURE: PSNR in decibels, SSIM, overshoot in levels and ring pixels.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>

#include "benchmarks/job.h"
#include "benchmarks/reference.h"
#include "output/png_encoder.h"
#include "platform/vips/vips_pictures.h"

namespace {

using namespace tessarine;
using benchmarks::must;
using benchmarks::Plane;

constexpr std::size_t channels = Bitmap::bytesPerPixel;
constexpr std::size_t alphaChannel = 3;

Plane readPlane(const char* path) {
  const auto picture = VipsPictures().decodeFile(path);
  must(picture && picture->bitmap, path);
  return benchmarks::premultiplied(*picture->bitmap);
}

double at(const Plane& plane, std::int64_t x, std::int64_t y, std::size_t channel) {
  return plane.values[static_cast<std::size_t>(y * plane.size.width + x) * channels + channel];
}

void writePNG(const Plane& plane, const char* path) {
  auto block = MemoryBlock::allocate(plane.values.size()).value();
  for (std::size_t i = 0; i < plane.values.size(); ++i) {
    const double alpha = plane.values[i / channels * channels + alphaChannel];
    const bool colour = i % channels != alphaChannel;
    const double value = colour && alpha > 0 ? 255 * plane.values[i] / alpha : plane.values[i];
    block.bytes()[i] = static_cast<std::uint8_t>(std::lround(value));
  }
  const auto png = encodePNG(Bitmap(plane.size, ByteBuffer(std::move(block)))).value();
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(png.bytes().data()),
             static_cast<std::streamsize>(png.bytes().size()));
  must(file.good(), path);
}

// The structural similarity of one channel in one window of two pictures, with its authors'
// constants for values of 0 to 255.
double similarityAt(const Plane& a, const Plane& b, std::int64_t left, std::int64_t top,
                    std::int64_t side, std::size_t channel) {
  const double c1 = std::pow(0.01 * 255, 2);
  const double c2 = std::pow(0.03 * 255, 2);
  double sumA = 0, sumB = 0, squaresA = 0, squaresB = 0, products = 0;
  for (std::int64_t y = top; y < top + side; ++y) {
    for (std::int64_t x = left; x < left + side; ++x) {
      const double valueA = at(a, x, y, channel);
      const double valueB = at(b, x, y, channel);
      sumA += valueA;
      sumB += valueB;
      squaresA += valueA * valueA;
      squaresB += valueB * valueB;
      products += valueA * valueB;
    }
  }
  const auto count = static_cast<double>(side * side);
  const double meanA = sumA / count;
  const double meanB = sumB / count;
  const double variances = squaresA / count - meanA * meanA + squaresB / count - meanB * meanB;
  const double covariance = products / count - meanA * meanB;
  return (2 * meanA * meanB + c1) * (2 * covariance + c2) /
         ((meanA * meanA + meanB * meanB + c1) * (variances + c2));
}

// The mean over all windows of 7 x 7 pixels and all channels.
double similarity(const Plane& a, const Plane& b) {
  constexpr std::int64_t window = 7;
  double sum = 0;
  std::int64_t count = 0;
  for (std::int64_t y = 0; y + window <= a.size.height; ++y) {
    for (std::int64_t x = 0; x + window <= a.size.width; ++x) {
      for (std::size_t channel = 0; channel < channels; ++channel, ++count) {
        sum += similarityAt(a, b, x, y, window, channel);
      }
    }
  }
  return sum / static_cast<double>(count);
}

// The least and the greatest value of the vector in each small pixel, in each channel.
struct Range {
  Plane least, greatest;
};

Range rangeOf(const Plane& large, PixelSize size) {
  const std::size_t count = static_cast<std::size_t>(size.width * size.height) * channels;
  Range range{{size, std::vector<double>(count, 255)}, {size, std::vector<double>(count, 0)}};
  const std::int64_t ratio = large.size.width / size.width;
  for (std::int64_t y = 0; y < large.size.height; ++y) {
    for (std::int64_t x = 0; x < large.size.width; ++x) {
      const auto small = static_cast<std::size_t>(y / ratio * size.width + x / ratio) * channels;
      for (std::size_t channel = 0; channel < channels; ++channel) {
        double& least = range.least.values[small + channel];
        double& greatest = range.greatest.values[small + channel];
        least = std::min(least, at(large, x, y, channel));
        greatest = std::max(greatest, at(large, x, y, channel));
      }
    }
  }
  return range;
}

// The most by which a value lies outside all that the vector shows in its pixel and the eight
// around it. A filter without negative weights that reaches no further cannot leave that range.
double overshoot(const Plane& picture, const Range& range) {
  double most = 0;
  for (std::int64_t y = 0; y < picture.size.height; ++y) {
    for (std::int64_t x = 0; x < picture.size.width; ++x) {
      for (std::size_t channel = 0; channel < channels; ++channel) {
        double least = 255;
        double greatest = 0;
        for (std::int64_t v = std::max<std::int64_t>(y - 1, 0);
             v <= std::min(y + 1, picture.size.height - 1); ++v) {
          for (std::int64_t u = std::max<std::int64_t>(x - 1, 0);
               u <= std::min(x + 1, picture.size.width - 1); ++u) {
            least = std::min(least, at(range.least, u, v, channel));
            greatest = std::max(greatest, at(range.greatest, u, v, channel));
          }
        }
        const double value = at(picture, x, y, channel);
        most = std::max({most, least - value, value - greatest});
      }
    }
  }
  return most;
}

// The pixels where the vector is wholly transparent and the picture faintly visible.
int ringPixels(const Plane& picture, const Range& range) {
  int count = 0;
  for (std::size_t i = alphaChannel; i < picture.values.size(); i += channels) {
    const double alpha = picture.values[i];
    if (range.greatest.values[i] == 0 && alpha >= 1 && alpha <= 7) ++count;
  }
  return count;
}

}  // namespace

int main(int argc, char** argv) {
  must(argc >= 4, "usage: likeness LARGE SMALL PICTURE...");
  const Plane large = readPlane(argv[1]);
  const PixelSize size = readPlane(argv[3]).size;
  must(large.size.width % size.width == 0 && large.size.height % size.height == 0, "whole ratio");
  const Plane truth = benchmarks::scaled(large, size, "box");
  const Range range = rangeOf(large, size);
  writePNG(truth, argv[2]);
  for (int i = 3; i < argc; ++i) {
    const Plane picture = readPlane(argv[i]);
    must(picture.size == size, argv[i]);
    std::printf("%.3f %.5f %.1f %d\n", benchmarks::signalToNoise(picture, truth),
                similarity(picture, truth), overshoot(picture, range), ringPixels(picture, range));
  }
}
