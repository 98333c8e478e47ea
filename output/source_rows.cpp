#include "output/source_rows.h"

#include <algorithm>

#include "output/pixel_samples.h"
#include "output/sample_mixing.h"

namespace tessarine {

namespace {

// Pixels that must be left for each output pixel on an axis: photographs come out 60 dB true. A
// second halving would take the mean of four rows for the outermost one, which stands for all
// beyond it.
constexpr std::int64_t leastRatio = 16;
// Pixels of a source that is worth it. Smaller ones keep their exactness: white noise, say, loses
// some where the pixels on the edge stand for all beyond it.
constexpr std::int64_t largeSource = std::int64_t{1} << 22;

}  // namespace

bool SourceRows::mayBeHalved(PixelSize source, PixelSize size) noexcept {
  const auto fits = [](std::int64_t from, std::int64_t to) {
    return from % 2 == 0 && from / 2 >= leastRatio * to;
  };
  const bool isLarge = source.width * source.height > largeSource;
  return isLarge && fits(source.width, size.width) && fits(source.height, size.height);
}

SourceRows::SourceRows(const Bitmap& bitmap, bool halved)
    : bitmap_(bitmap), halved_(halved), lastRow_(bitmap.size().height / (halved ? 2 : 1) - 1) {
  if (!halved) return;
  const std::size_t samples = wholeGroups(stripPixels) * samplesPerPixel;
  upper_ = Scratch<std::int16_t>(samples);
  lower_ = Scratch<std::int16_t>(samples);
}

const std::uint8_t* SourceRows::levels(std::int64_t y, std::size_t x) const noexcept {
  return bitmap_.row(y).data() + x * samplesPerPixel;
}

void SourceRows::loadHalved(std::int64_t y, std::size_t x, std::size_t pixels,
                            std::int16_t* samples) const {
  loadHalvedRow(levels(2 * y, 2 * x), levels(2 * y + 1, 2 * x), pixels, samples);
}

void SourceRows::loadPair(std::int64_t pair, std::size_t x, std::size_t pixels,
                          std::int16_t* rowPair) {
  const std::int64_t upperRow = 2 * pair;
  const std::int64_t lowerRow = std::min(upperRow + 1, lastRow_);
  if (!halved_) {
    return loadRowPair(levels(upperRow, x), levels(lowerRow, x), pixels, rowPair);
  }
  loadHalved(upperRow, x, pixels, upper_.data());
  loadHalved(lowerRow, x, pixels, lower_.data());
  pairRows(upper_.data(), lower_.data(), pixels, rowPair);
}

}  // namespace tessarine
