#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/picture.h"

namespace tessarine {

// How a row is told by its neighbours; the values are those of the file format.
enum class PNGFilter : std::uint8_t { none, sub, up, average, paeth };

// The bytes that the filtered rows of a bitmap of this size, which must be one that can be made,
// take: a filter type before each row.
std::size_t filteredByteCount(PixelSize size) noexcept;

// Filters every row by the filter whose results, as signed bytes, have the least sum of absolute
// values, none of them counted as more than 32; of equals the first in `PNGFilter`. `filtered` must
// hold exactly `filteredByteCount` bytes. Answers how many of the results are 0.
std::size_t filterRows(const Bitmap& bitmap, std::span<std::uint8_t> filtered);

}  // namespace tessarine
