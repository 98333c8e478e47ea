#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/picture.h"

// Between the pixels of bitmaps and the samples that the resampler works on: colours with alpha
// multiplied in, and alpha, in 100 steps for each of the 255 levels. That leaves a signed 16-bit
// number the room that an overshooting kernel needs.
//
// Each operation runs in the fastest form that the processor offers. Rows of samples start on a
// cache line and have room for whole groups of pixels, which is what is written.
namespace tessarine {

inline constexpr std::size_t samplesPerPixel = Bitmap::bytesPerPixel;
inline constexpr std::size_t pixelGroup = 32;

constexpr std::size_t wholeGroups(std::size_t pixels) {
  return (pixels + pixelGroup - 1) / pixelGroup * pixelGroup;
}

void loadRow(const std::uint8_t* levels, std::size_t pixels, std::int16_t* samples);

// Two rows as one row of pairs: see `pairRows`.
void loadRowPair(const std::uint8_t* upper, const std::uint8_t* lower, std::size_t pixels,
                 std::int16_t* rowPair);

// The means of squares of four pixels; `pixels` counts the squares.
void loadHalvedRow(const std::uint8_t* upper, const std::uint8_t* lower, std::size_t pixels,
                   std::int16_t* samples);

// Divides alpha out. What overshoots is cut off: alpha at opacity, a colour at alpha. Alpha 0 has
// no colour.
void storeRow(const std::int16_t* samples, std::size_t pixels, std::uint8_t* levels);

}  // namespace tessarine
