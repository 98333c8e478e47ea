#include "output/resampler.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "output/column_table.h"
#include "output/source_rows.h"
#include "output/taps.h"
#include "output/tile_scaling.h"

namespace tessarine {

namespace {

// Beyond this many source pixels for each output pixel the kernel's weights become too small for
// their fixed point: such an axis is shrunk in steps of `ratioStep`.
constexpr std::int64_t maximumRatio = 256;
constexpr std::int64_t ratioStep = 16;

std::int64_t firstStep(std::int64_t source, std::int64_t target) {
  return source / target > maximumRatio ? source / ratioStep : source;
}

void copyVisible(std::span<const std::uint8_t> source, std::span<std::uint8_t> target) {
  for (std::size_t i = 0; i < source.size(); i += Bitmap::bytesPerPixel) {
    if (source[i + 3] != 0) std::memcpy(&target[i], &source[i], Bitmap::bytesPerPixel);
  }
}

// The most columns of a tile, of the source or of the output.
constexpr double tilePixels = 2048;

// Throws std::bad_alloc.
void resample(const Bitmap& source, PixelSize size, std::span<std::uint8_t> pixels) {
  const bool halved = SourceRows::mayBeHalved(source.size(), size);
  const std::int64_t squareSide = halved ? 2 : 1;
  Axis columns(source.size().width / squareSide, size.width);
  Axis rows(source.size().height / squareSide, size.height);
  SourceRows sourceRows(source, halved);
  const auto tileWidth =
      static_cast<std::int64_t>(std::max(1.0, tilePixels / std::max(1.0, columns.scale())));
  for (std::int64_t begin = 0; begin < size.width; begin += tileWidth) {
    const ColumnTable tile(columns, {begin, std::min(begin + tileWidth, size.width)});
    constexpr std::size_t pixelBytes = Bitmap::bytesPerPixel;
    const TileRows output{&pixels[static_cast<std::size_t>(begin) * pixelBytes],
                          static_cast<std::size_t>(size.width) * pixelBytes};
    if (rows.source() > rows.target()) {
      mixRowsFirst(sourceRows, tile, rows, output);
    } else {
      mixColumnsFirst(source, tile, rows, output);
    }
  }
}

}  // namespace

std::optional<Picture> resizedImage(const Picture& source, std::int64_t width,
                                    std::int64_t height) try {
  Picture result{{width, height}, std::nullopt};
  const auto bytes = Bitmap::byteCount(result.points);
  if (!bytes) return result;
  const PixelSize size = source.bitmap ? source.bitmap->size() : result.points;
  const PixelSize step{firstStep(size.width, width), firstStep(size.height, height)};
  if (step != size) {
    const auto smaller = resizedImage(source, step.width, step.height);
    if (!smaller || !smaller->bitmap) return std::nullopt;
    return resizedImage(*smaller, width, height);
  }
  auto pixels = MemoryBlock::allocate(*bytes);
  if (!pixels) return result;
  if (source.bitmap && size == result.points) {
    copyVisible(source.bitmap->pixels(), pixels->bytes());
  } else if (source.bitmap) {
    resample(*source.bitmap, result.points, pixels->bytes());
  }
  result.bitmap.emplace(result.points, ByteBuffer(*std::move(pixels)));
  return result;
} catch (const std::bad_alloc&) {
  return std::nullopt;
}

}  // namespace tessarine
