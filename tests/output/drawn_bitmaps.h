#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/picture.h"

namespace tessarine::testing {

struct Colour {
  std::uint8_t red = 0, green = 0, blue = 0, alpha = 0;
};

// The colour of the pixel at x, y.
using Paint = std::function<Colour(std::int64_t x, std::int64_t y)>;

Bitmap drawn(PixelSize size, const Paint& paint);

struct DrawnBitmap {
  std::string name;
  Bitmap bitmap;
};

// One bitmap of every kind (one colour, transparent, gradients, noise, a shape with soft edges)
// in every shape (one pixel, a row, a column, odd and even sides).
std::vector<DrawnBitmap> drawnBitmaps();

}  // namespace tessarine::testing
