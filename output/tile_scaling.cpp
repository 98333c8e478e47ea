#include "output/tile_scaling.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "output/pixel_samples.h"
#include "output/sample_mixing.h"
#include "output/scratch.h"

namespace tessarine {

namespace {

// Pairs of source rows that are added together: strips of them stay in the fastest cache, and the
// sums need not be touched for every row.
constexpr std::int64_t batchPairs = 8;

// An output row that grows while the source is read.
struct GrowingRow {
  GrowingRow(std::size_t maximumTaps, std::size_t pixels)
      : weights(maximumTaps), sums(pixels * samplesPerPixel) {}

  std::int64_t firstPair = 0;
  std::int64_t endPair = 0;
  Scratch<std::int16_t> weights;
  Scratch<std::int32_t> sums;
};

// The output rows that the rows of a batch touch, and the next one.
class GrowingRows {
 public:
  GrowingRows(Axis& axis, std::size_t pixels)
      : axis_(axis), rows_(count(axis.scale()), {axis.maximumTaps(), pixels}) {}

  GrowingRow& operator[](std::int64_t y) {
    return rows_[static_cast<std::size_t>(y) % rows_.size()];
  }

  void start(std::int64_t y) {
    GrowingRow& row = (*this)[y];
    const Taps taps = axis_.taps(y, row.weights.data());
    row.firstPair = taps.first / 2;
    row.endPair = row.firstPair + static_cast<std::int64_t>(taps.count / 2);
  }

 private:
  // Every row that is touched has its centre in the batch or within the kernel's radius of it.
  static std::size_t count(double scale) {
    return static_cast<std::size_t>(std::ceil(2 * batchPairs / scale + 2 * kernelRadius)) + 1;
  }

  Axis& axis_;
  std::vector<GrowingRow> rows_;
};

// Rows of pairs for a strip of columns.
class Batch {
 public:
  Batch() : samples_(batchPairs * pairSamples) {
    for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i] = samples_.data() + i * pairSamples;
  }

  std::int16_t* operator[](std::int64_t i) {
    return samples_.data() + static_cast<std::size_t>(i) * pairSamples;
  }

  // Adds the batch's part of a row, whose first pair is `begin`.
  void addTo(GrowingRow& row, std::int64_t begin, std::int64_t end, std::size_t x,
             std::size_t pixels) const {
    const std::int64_t from = std::max(begin, row.firstPair);
    const std::int64_t to = std::min(end, row.endPair);
    if (from >= to) return;
    addRows(rows_.data() + (from - begin), static_cast<std::size_t>(to - from),
            row.weights.data() + 2 * (from - row.firstPair), pixels,
            row.sums.data() + x * samplesPerPixel);
  }

 private:
  static constexpr std::size_t pairSamples = 2 * stripPixels * samplesPerPixel;

  Scratch<std::int16_t> samples_;
  std::array<const std::int16_t*, batchPairs> rows_;
};

}  // namespace

void mixRowsFirst(SourceRows& source, const ColumnTable& columns, Axis& rows,
                  const TileRows& output) {
  const std::size_t width = columns.sourceColumns();
  GrowingRows growing(rows, columns.sourceRoom());
  Batch batch;
  Scratch<std::int16_t> mixed(columns.sourceRoom() * samplesPerPixel);
  Scratch<std::int16_t> columnPairs(columns.sourceRoom() * samplesPerPixel);
  Scratch<std::int16_t> samples(wholeGroups(columns.columns()) * samplesPerPixel);

  std::int64_t started = 0;
  std::int64_t finished = 0;
  growing.start(started);
  const std::int64_t pairs = (rows.source() + 1) / 2;
  for (std::int64_t begin = 0; begin < pairs; begin += batchPairs) {
    const std::int64_t end = std::min(begin + batchPairs, pairs);
    while (started < rows.target() && growing[started].firstPair < end) {
      if (++started < rows.target()) growing.start(started);
    }
    for (std::size_t x = 0; x < width; x += stripPixels) {
      const std::size_t pixels = std::min(stripPixels, width - x);
      for (std::int64_t pair = begin; pair < end; ++pair) {
        source.loadPair(pair, columns.firstSourceColumn() + x, pixels, batch[pair - begin]);
      }
      for (std::int64_t y = finished; y < started; ++y) {
        batch.addTo(growing[y], begin, end, x, pixels);
      }
    }
    for (; finished < started && growing[finished].endPair <= end; ++finished) {
      takeSums(growing[finished].sums.data(), width, mixed.data());
      pairColumns(mixed.data(), width, columnPairs.data());
      mixColumns(columnPairs.data(), columns.taps(), columns.columns(), samples.data());
      storeRow(samples.data(), columns.columns(), output.row(finished));
    }
  }
}

void mixColumnsFirst(const Bitmap& source, const ColumnTable& columns, Axis& rows,
                     const TileRows& output) {
  // Four taps, the most when enlarging, touch no more than three pairs.
  constexpr std::size_t keptPairs = 3;
  const std::size_t room = wholeGroups(columns.columns()) * samplesPerPixel;
  Scratch<std::int16_t> loaded(columns.sourceRoom() * samplesPerPixel);
  Scratch<std::int16_t> columnPairs(columns.sourceRoom() * samplesPerPixel);
  Scratch<std::int16_t> upper(room);
  Scratch<std::int16_t> lower(room);
  std::vector<Scratch<std::int16_t>> kept(keptPairs, Scratch<std::int16_t>(2 * room));
  Scratch<std::int32_t> sums(room);
  Scratch<std::int16_t> weights(rows.maximumTaps());

  const auto mixRow = [&](std::int64_t y, Scratch<std::int16_t>& samples) {
    const auto row = source.row(std::min(y, rows.source() - 1));
    loadRow(&row[columns.firstSourceColumn() * samplesPerPixel], columns.sourceColumns(),
            loaded.data());
    pairColumns(loaded.data(), columns.sourceColumns(), columnPairs.data());
    mixColumns(columnPairs.data(), columns.taps(), columns.columns(), samples.data());
  };
  std::int64_t mixedPairs = 0;
  for (std::int64_t y = 0; y < rows.target(); ++y) {
    const Taps taps = rows.taps(y, weights.data());
    const auto first = static_cast<std::size_t>(taps.first / 2);
    const std::size_t count = taps.count / 2;
    for (; mixedPairs < static_cast<std::int64_t>(first + count); ++mixedPairs) {
      mixRow(2 * mixedPairs, upper);
      mixRow(2 * mixedPairs + 1, lower);
      pairRows(upper.data(), lower.data(), columns.columns(),
               kept[static_cast<std::size_t>(mixedPairs) % keptPairs].data());
    }
    std::array<const std::int16_t*, keptPairs> rowPairs;
    for (std::size_t i = 0; i < count; ++i) rowPairs[i] = kept[(first + i) % keptPairs].data();
    addRows(rowPairs.data(), count, weights.data(), columns.columns(), sums.data());
    takeSums(sums.data(), columns.columns(), upper.data());
    storeRow(upper.data(), columns.columns(), output.row(y));
  }
}

}  // namespace tessarine
