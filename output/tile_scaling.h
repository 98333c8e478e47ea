#pragma once

#include <cstddef>
#include <cstdint>

#include "output/column_table.h"
#include "output/source_rows.h"
#include "output/taps.h"
#include "platform/picture.h"

// A picture is scaled in tiles, runs of output columns over its whole height, so that working
// memory depends neither on its width nor on its height. Fewer rows are made first where rows get
// fewer, and last where they get more, so that the second axis has the least to do:
//
//   shrinking:  source rows -> pairs -> added by weight to output rows -> columns mixed -> stored
//   enlarging:  source rows -> columns mixed -> pairs -> output rows added by weight -> stored
//
// When shrinking, the source is read in batches of a few pairs of rows, and a batch in strips of
// columns that stay in the fastest cache while they are added to every output row that they touch.
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

}  // namespace tessarine
