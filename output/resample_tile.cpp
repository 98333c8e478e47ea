#include "output/resample_tile.h"

#include <algorithm>
#include <array>
#include <vector>

#include "output/resample_passes.h"
#include "output/scratch.h"

namespace tessarine {

namespace {

// Source rows that are read together, and columns of them that stay in the fastest cache.
constexpr std::int64_t batchPairs = 8;
constexpr std::size_t stripPixels = 256;
static_assert(stripPixels % pixelGroup == 0);

constexpr std::int64_t tilePixels = 2048;

std::size_t grouped(std::size_t pixels) {
  return (pixels + pixelGroup - 1) / pixelGroup * pixelGroup;
}

// How the columns of a tile are mixed from source columns.
class ColumnTable {
 public:
  ColumnTable(Axis& axis, TileColumns tile)
      : columns_(static_cast<std::size_t>(tile.end - tile.begin)),
        count_(axis.maximumTaps()),
        firsts_(grouped(columns_)),
        weights_(grouped(columns_) * count_) {
    for (std::size_t column = 0; column < columns_; ++column) {
      const Taps taps = axis.taps(tile.begin + static_cast<std::int64_t>(column),
                                  weights_.data() + column * count_);
      if (column == 0) sourceBegin_ = taps.first;
      firsts_.data()[column] = static_cast<std::uint32_t>(taps.first - sourceBegin_);
      sourceEnd_ = std::min(taps.first + static_cast<std::int64_t>(taps.count), axis.source());
    }
  }

  std::size_t columns() const noexcept { return columns_; }
  std::size_t sourceColumns() const noexcept {
    return static_cast<std::size_t>(sourceEnd_ - sourceBegin_);
  }
  // Pixels that a row of source columns needs room for.
  std::size_t rowPixels() const noexcept { return grouped(sourceColumns()) + count_; }
  ColumnTaps taps() const noexcept { return {firsts_.data(), weights_.data(), count_}; }
  // The first source column's place in a row of the bitmap.
  const std::uint8_t* in(std::span<const std::uint8_t> row) const noexcept {
    return row.data() + static_cast<std::size_t>(sourceBegin_) * channels;
  }

 private:
  std::size_t columns_;
  std::size_t count_;
  Scratch<std::uint32_t> firsts_;
  Scratch<std::int16_t> weights_;
  std::int64_t sourceBegin_ = 0;
  std::int64_t sourceEnd_ = 0;
};

// The rows of a bitmap two by two; below an odd number of rows the last one stands in.
struct RowPair {
  RowPair(const Bitmap& bitmap, const ColumnTable& columns, std::int64_t pair)
      : upper(columns.in(bitmap.row(2 * pair))),
        lower(columns.in(bitmap.row(std::min(2 * pair + 1, bitmap.size().height - 1)))) {}

  const std::uint8_t* upper;
  const std::uint8_t* lower;
};

struct Output {
  std::uint8_t* begin;
  std::size_t rowBytes;

  std::uint8_t* row(std::int64_t y) const { return begin + static_cast<std::size_t>(y) * rowBytes; }
};

// An output row that grows while the source is read.
struct GrowingRow {
  GrowingRow(std::size_t maximumTaps, std::size_t pixels)
      : weights(maximumTaps), sums(pixels * channels) {}

  std::int64_t firstPair = 0;
  std::int64_t endPair = 0;
  Scratch<std::int16_t> weights;
  Scratch<std::int32_t> sums;
};

// Every source row is read once and added to the few output rows that it touches.
void mixRowsFirst(const Bitmap& source, const ColumnTable& columns, Axis& rows,
                  const Output& output) {
  const std::size_t width = columns.sourceColumns();
  const double touched = (4 * rows.scale() + 2 * batchPairs) / rows.scale();
  std::vector<GrowingRow> growing(static_cast<std::size_t>(touched) + 3,
                                  {rows.maximumTaps(), columns.rowPixels()});
  const auto row = [&](std::int64_t y) -> GrowingRow& {
    return growing[static_cast<std::size_t>(y) % growing.size()];
  };
  Scratch<std::int16_t> batch(batchPairs * stripPixels * channels * 2);
  Scratch<std::int16_t> columnPairs(columns.rowPixels() * channels);
  Scratch<std::int16_t> samples(grouped(columns.columns()) * channels);
  std::array<const std::int16_t*, batchPairs> rowPairs;
  for (std::size_t i = 0; i < rowPairs.size(); ++i) {
    rowPairs[i] = batch.data() + i * stripPixels * channels * 2;
  }

  std::int64_t started = 0;
  std::int64_t finished = 0;
  const std::int64_t pairs = (rows.source() + 1) / 2;
  for (std::int64_t begin = 0; begin < pairs; begin += batchPairs) {
    const std::int64_t end = std::min(begin + batchPairs, pairs);
    for (; started < rows.target(); ++started) {
      GrowingRow& next = row(started);
      const Taps taps = rows.taps(started, next.weights.data());
      next.firstPair = taps.first / 2;
      next.endPair = next.firstPair + static_cast<std::int64_t>(taps.count / 2);
      if (next.firstPair >= end) break;
    }
    for (std::size_t x = 0; x < width; x += stripPixels) {
      const std::size_t count = std::min(stripPixels, width - x);
      for (std::int64_t pair = begin; pair < end; ++pair) {
        const RowPair both(source, columns, pair);
        pairRows(
            both.upper + x * channels, both.lower + x * channels, count,
            batch.data() + static_cast<std::size_t>(pair - begin) * stripPixels * channels * 2);
      }
      for (std::int64_t y = finished; y < started; ++y) {
        GrowingRow& mixed = row(y);
        const std::int64_t from = std::max(begin, mixed.firstPair);
        const std::int64_t to = std::min(end, mixed.endPair);
        if (from >= to) continue;
        addRows(rowPairs.data() + (from - begin), static_cast<std::size_t>(to - from),
                mixed.weights.data() + 2 * (from - mixed.firstPair), count,
                mixed.sums.data() + x * channels);
      }
    }
    for (; finished < started && row(finished).endPair <= end; ++finished) {
      takeSumsAsColumnPairs(row(finished).sums.data(), width, columnPairs.data());
      resizeRow(columnPairs.data(), columns.taps(), columns.columns(), samples.data());
      storeRow(samples.data(), columns.columns(), output.row(finished));
    }
  }
}

// Every source row is widened once and kept while output rows need it.
void mixColumnsFirst(const Bitmap& source, const ColumnTable& columns, Axis& rows,
                     const Output& output) {
  // Rows are enlarged here: four taps, which touch no more than three pairs.
  constexpr std::size_t keptPairs = 3;
  const std::size_t rowSamples = grouped(columns.columns()) * channels;
  Scratch<std::int16_t> columnPairs(columns.rowPixels() * channels);
  Scratch<std::int16_t> upper(rowSamples);
  Scratch<std::int16_t> lower(rowSamples);
  Scratch<std::int32_t> sums(rowSamples);
  Scratch<std::int16_t> weights(rows.maximumTaps());
  std::vector<Scratch<std::int16_t>> kept(keptPairs, Scratch<std::int16_t>(2 * rowSamples));

  const auto widen = [&](const std::uint8_t* row, Scratch<std::int16_t>& samples) {
    pairColumns(row, columns.sourceColumns(), columnPairs.data());
    resizeRow(columnPairs.data(), columns.taps(), columns.columns(), samples.data());
  };
  std::int64_t widened = 0;
  for (std::int64_t y = 0; y < rows.target(); ++y) {
    const Taps taps = rows.taps(y, weights.data());
    const std::int64_t first = taps.first / 2;
    const std::size_t count = taps.count / 2;
    for (; widened < first + static_cast<std::int64_t>(count); ++widened) {
      const RowPair both(source, columns, widened);
      widen(both.upper, upper);
      widen(both.lower, lower);
      pairSampleRows(upper.data(), lower.data(), columns.columns(),
                     kept[static_cast<std::size_t>(widened) % keptPairs].data());
    }
    std::array<const std::int16_t*, keptPairs> rowPairs;
    for (std::size_t i = 0; i < count; ++i) {
      rowPairs[i] = kept[(static_cast<std::size_t>(first) + i) % keptPairs].data();
    }
    addRows(rowPairs.data(), count, weights.data(), columns.columns(), sums.data());
    takeSums(sums.data(), columns.columns(), upper.data());
    storeRow(upper.data(), columns.columns(), output.row(y));
  }
}

}  // namespace

std::int64_t tileWidth(const Axis& columns) noexcept {
  return std::max<std::int64_t>(
      1, static_cast<std::int64_t>(tilePixels / std::max(columns.scale(), 1.0)));
}

void resampleTile(const Bitmap& source, Axis& columns, Axis& rows, TileColumns tile,
                  std::uint8_t* output) {
  const ColumnTable table(columns, tile);
  const Output tileOutput{output + static_cast<std::size_t>(tile.begin) * channels,
                          static_cast<std::size_t>(columns.target()) * channels};
  if (rows.source() > rows.target()) {
    mixRowsFirst(source, table, rows, tileOutput);
  } else {
    mixColumnsFirst(source, table, rows, tileOutput);
  }
}

}  // namespace tessarine
