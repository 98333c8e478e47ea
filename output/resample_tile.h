#pragma once

#include <cstddef>
#include <cstdint>

#include "output/taps.h"
#include "platform/picture.h"

namespace tessarine {

// A run of output columns, which is scaled by itself so that working memory stays small whatever
// the sides of the pictures are.
struct TileColumns {
  std::int64_t begin;
  std::int64_t end;
};

// The widest run whose source and output columns are both few.
std::int64_t tileWidth(const Axis& columns) noexcept;

// Scales the source into those columns of the output, whose rows take `rowBytes` bytes each.
// Throws std::bad_alloc.
void resampleTile(const Bitmap& source, Axis& columns, Axis& rows, TileColumns tile,
                  std::uint8_t* output);

}  // namespace tessarine
