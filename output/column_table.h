#pragma once

#include <cstddef>
#include <cstdint>

#include "output/sample_mixing.h"
#include "output/scratch.h"
#include "output/taps.h"

namespace tessarine {

// A run of output columns. A picture is scaled one such tile after the other, so that working
// memory stays small whatever the sides of the pictures are.
struct Tile {
  std::int64_t begin;
  std::int64_t end;
};

// How the columns of a tile are mixed from source columns.
class ColumnTable {
 public:
  // Throws std::bad_alloc.
  ColumnTable(Axis& axis, Tile tile);

  std::size_t columns() const noexcept { return columns_; }
  // The source columns that are mixed, from `firstSourceColumn` on.
  std::size_t firstSourceColumn() const noexcept { return static_cast<std::size_t>(sourceBegin_); }
  std::size_t sourceColumns() const noexcept {
    return static_cast<std::size_t>(sourceEnd_ - sourceBegin_);
  }
  // The pixels that a row of source columns needs room for: every column takes as many, even
  // where the last ones weigh nothing.
  std::size_t sourceRoom() const noexcept;
  ColumnTaps taps() const noexcept { return {firsts_.data(), weights_.data(), count_}; }

 private:
  std::size_t columns_;
  std::size_t count_;
  Scratch<std::uint32_t> firsts_;
  Scratch<std::int16_t> weights_;
  std::int64_t sourceBegin_ = 0;
  std::int64_t sourceEnd_ = 0;
};

}  // namespace tessarine
