#pragma once

#include <string>
#include <vector>

#include "platform/picture.h"

namespace tessarine::benchmarks {

// Red, green, blue and alpha of 0 to 255, multiplied by alpha, in double precision.
struct Plane {
  PixelSize size;
  std::vector<double> values;
};

Plane premultiplied(const Bitmap& bitmap);

// `source` stretched to `size` in double precision by the kernel of that name: "box" (the mean of
// the area), "triangle", "catmull-rom", "mitchell" or "lanczos3"; widened when shrinking, edges
// clamped.
Plane scaled(const Plane& source, PixelSize size, const std::string& kernel);

// In decibels; infinity for equal planes of one size.
double signalToNoise(const Plane& actual, const Plane& expected);

}  // namespace tessarine::benchmarks
