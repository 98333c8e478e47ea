#include "output/source_rows.h"

#include <algorithm>

#include "output/pixel_samples.h"
#include "output/sample_mixing.h"

namespace tessarine {

namespace {

constexpr int maximumHalvings = 3;
// Pixels that must be left for each output pixel on an axis: photographs come out 60 dB true.
constexpr std::int64_t leastRatio = 16;
// Pixels of a source that is worth it. Smaller ones keep their exactness: white noise, say, loses
// some where the pixels on the edge stand for all beyond it.
constexpr std::int64_t largeSource = std::int64_t{1} << 22;

}  // namespace

int SourceRows::halvings(PixelSize source, PixelSize size) noexcept {
  if (source.width * source.height <= largeSource) return 0;
  int halvings = 0;
  const auto fits = [&](std::int64_t from, std::int64_t to) {
    const std::int64_t side = std::int64_t{2} << halvings;
    return from % side == 0 && from / side >= leastRatio * to;
  };
  while (halvings < maximumHalvings && fits(source.width, size.width) &&
         fits(source.height, size.height)) {
    ++halvings;
  }
  return halvings;
}

SourceRows::SourceRows(const Bitmap& bitmap, int halvings, std::size_t pixelsAtOnce)
    : bitmap_(bitmap), halvings_(halvings), lastRow_((bitmap.size().height >> halvings) - 1) {
  for (int level = 1; level <= halvings; ++level) {
    const std::size_t pixels = wholeGroups(pixelsAtOnce << (halvings - level));
    auto& rows = rows_[static_cast<std::size_t>(level - 1)];
    rows.fill(Scratch<std::int16_t>(pixels * samplesPerPixel));
  }
}

const std::uint8_t* SourceRows::levels(std::int64_t y, std::size_t x) const noexcept {
  return bitmap_.row(y).data() + x * samplesPerPixel;
}

void SourceRows::load(int halvings, std::int64_t y, std::size_t x, std::size_t pixels,
                      std::int16_t* samples) {
  if (halvings == 1) {
    return loadHalvedRow(levels(2 * y, 2 * x), levels(2 * y + 1, 2 * x), pixels, samples);
  }
  auto& [upper, lower] = rows_[static_cast<std::size_t>(halvings - 2)];
  load(halvings - 1, 2 * y, 2 * x, 2 * pixels, upper.data());
  load(halvings - 1, 2 * y + 1, 2 * x, 2 * pixels, lower.data());
  halveRows(upper.data(), lower.data(), pixels, samples);
}

void SourceRows::loadPair(std::int64_t pair, std::size_t x, std::size_t pixels,
                          std::int16_t* rowPair) {
  const std::int64_t upperRow = 2 * pair;
  const std::int64_t lowerRow = std::min(upperRow + 1, lastRow_);
  if (halvings_ == 0) {
    return loadRowPair(levels(upperRow, x), levels(lowerRow, x), pixels, rowPair);
  }
  auto& [upper, lower] = rows_[static_cast<std::size_t>(halvings_ - 1)];
  load(halvings_, upperRow, x, pixels, upper.data());
  load(halvings_, lowerRow, x, pixels, lower.data());
  pairRows(upper.data(), lower.data(), pixels, rowPair);
}

}  // namespace tessarine
