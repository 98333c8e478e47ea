#include "output/column_table.h"

#include <algorithm>

#include "output/pixel_samples.h"

namespace tessarine {

ColumnTable::ColumnTable(Axis& axis, Tile tile)
    : columns_(static_cast<std::size_t>(tile.end - tile.begin)),
      count_(axis.maximumTaps()),
      firsts_(wholeGroups(columns_)),
      weights_(wholeGroups(columns_) * count_) {
  for (std::size_t column = 0; column < columns_; ++column) {
    const Taps taps = axis.taps(tile.begin + static_cast<std::int64_t>(column),
                                weights_.data() + column * count_);
    if (column == 0) sourceBegin_ = taps.first;
    firsts_.data()[column] = static_cast<std::uint32_t>(taps.first - sourceBegin_);
    sourceEnd_ = std::min(taps.first + static_cast<std::int64_t>(taps.count), axis.source());
  }
}

std::size_t ColumnTable::sourceRoom() const noexcept {
  return wholeGroups(sourceColumns() + count_);
}

}  // namespace tessarine
