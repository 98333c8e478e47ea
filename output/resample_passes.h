#pragma once

#include <cstddef>
#include <cstdint>

#include "output/taps.h"

// The inner loops of the resampler, each in the fastest form that the processor offers.
//
// They work on samples: colours with alpha multiplied in, and alpha, as 100 steps for each of the
// 255 levels. That leaves a signed 16-bit number the room that overshooting kernels need.
// Samples stand in pairs, of two rows or of two columns, so that one instruction multiplies and
// adds both. Pixel counts are rounded up to `pixelGroup`: rows of samples must have room for it.
namespace tessarine {

inline constexpr std::size_t pixelGroup = 32;
inline constexpr std::size_t channels = 4;

// Two rows of a bitmap as one row of pairs, which takes eight samples a pixel.
void pairRows(const std::uint8_t* upper, const std::uint8_t* lower, std::size_t pixels,
              std::int16_t* rowPair);

// The same of two rows of samples.
void pairSampleRows(const std::int16_t* upper, const std::int16_t* lower, std::size_t pixels,
                    std::int16_t* rowPair);

// A row of a bitmap as pairs of neighbouring pixels, which takes four samples a pixel.
void pairColumns(const std::uint8_t* row, std::size_t pixels, std::int16_t* columnPairs);

// Adds weighted rows to `sums`, which takes four numbers a pixel in an order of its own.
void addRows(const std::int16_t* const* rowPairs, std::size_t pairs, const std::int16_t* weights,
             std::size_t pixels, std::int32_t* sums);

// Finished sums as samples, and the sums back to zero.
void takeSums(std::int32_t* sums, std::size_t pixels, std::int16_t* samples);
void takeSumsAsColumnPairs(std::int32_t* sums, std::size_t pixels, std::int16_t* columnPairs);

// The taps of a run of output columns, each of `count` weights from the source column `firsts`.
struct ColumnTaps {
  const std::uint32_t* firsts;
  const std::int16_t* weights;
  std::size_t count;
};

// A row of `pixels` output columns; reads `count` columns from each first one, though the last
// ones may weigh nothing.
void resizeRow(const std::int16_t* columnPairs, const ColumnTaps& taps, std::size_t pixels,
               std::int16_t* samples);

// Samples as a row of a bitmap, with alpha divided out. Alpha 0 has no colour.
void storeRow(const std::int16_t* samples, std::size_t pixels, std::uint8_t* row);

}  // namespace tessarine
