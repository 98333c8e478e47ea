#pragma once

#include <cstddef>
#include <cstdint>

#include "output/column_table.h"
#include "output/source_rows.h"
#include "output/taps.h"
#include "platform/picture.h"

namespace tessarine {

// Rows of a tile inside a bitmap.
struct TileRows {
  std::uint8_t* first;
  std::size_t rowBytes;

  std::uint8_t* row(std::int64_t y) const noexcept {
    return first + static_cast<std::size_t>(y) * rowBytes;
  }
};

// For fewer rows than the source has: reads each source row once and adds it to the few output
// rows that it touches, which are narrowed or widened when they are complete.
void mixRowsFirst(SourceRows& source, const ColumnTable& columns, Axis& rows,
                  const TileRows& output);

// For as many rows as the source has, or more: narrows or widens each source row once and keeps it
// while output rows are mixed from it.
void mixColumnsFirst(const Bitmap& source, const ColumnTable& columns, Axis& rows,
                     const TileRows& output);

// The pixels that `mixRowsFirst` loads of a row at once.
inline constexpr std::size_t stripPixels = 256;

}  // namespace tessarine
