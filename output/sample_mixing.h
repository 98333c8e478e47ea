#pragma once

#include <cstddef>
#include <cstdint>

// The resampler's inner loops over samples, each in the fastest form that the processor offers.
//
// What is mixed stands in pairs, of two rows or of two columns, so that one instruction multiplies
// both and adds them. Rows start on a cache line and have room for whole groups of pixels.
namespace tessarine {

// Two rows as one row of pairs, of eight numbers a pixel, in the order in which the processor
// interleaves them, as `loadRowPair` does. Sums have it too, until `takeSums` undoes it.
void pairRows(const std::int16_t* upper, const std::int16_t* lower, std::size_t pixels,
              std::int16_t* rowPair);

// Each even pixel interleaved with its right neighbour.
void pairColumns(const std::int16_t* samples, std::size_t pixels, std::int16_t* columnPairs);

// Adds `pairs` rows of pairs to `sums`, each by two of the weights; four numbers a pixel.
void addRows(const std::int16_t* const* rowPairs, std::size_t pairs, const std::int16_t* weights,
             std::size_t pixels, std::int32_t* sums);

// Finished sums as samples; the sums go back to zero.
void takeSums(std::int32_t* sums, std::size_t pixels, std::int16_t* samples);

// What each of a run of output columns is mixed from: `count` columns, an even number, from an
// even column on.
struct ColumnTaps {
  const std::uint32_t* firsts;
  const std::int16_t* weights;
  std::size_t count;
};

// A row of `pixels` output columns. An odd last one needs taps beside it.
void mixColumns(const std::int16_t* columnPairs, const ColumnTaps& taps, std::size_t pixels,
                std::int16_t* samples);

}  // namespace tessarine
