#pragma once

#include <cstdint>
#include <vector>

#include "platform/picture.h"
#include "tests/output/drawn_bitmaps.h"

namespace tessarine::testing {

// A picture of its own size in points.
Picture drawnPicture(PixelSize size, const Paint& paint);

// Every channel of every pixel at random; the same on every run.
Paint noise();
// As `noise`, without transparency.
Paint opaqueNoise();
// Soft and hard edges with some grain.
Paint photograph();
// A disc with a soft edge, coloured by place and chequered, on nothing.
Paint disc(PixelSize size);

// Red, green, blue and alpha of a pixel, from 0 to 255.
struct Premultiplied {
  double channels[4] = {};
};

// The scaled picture in double precision, straight from the definition: each axis by Catmull-Rom,
// stretched when shrinking, on colours multiplied by alpha, the edge pixel standing in for
// everything beyond it. Rounded to 8 bits a channel at the very end.
std::vector<Premultiplied> referencePixels(const Bitmap& source, PixelSize size);

// How near the bitmap is to the reference, in decibels: over the colours multiplied by alpha, so
// that what cannot be seen does not count, and over alpha itself.
double decibels(const Bitmap& bitmap, const std::vector<Premultiplied>& reference);

}  // namespace tessarine::testing
