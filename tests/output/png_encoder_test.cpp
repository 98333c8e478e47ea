#include "output/png_encoder.h"

#include <gtest/gtest.h>
#include <libdeflate.h>

#include <cstdlib>

#include "output/png_filters.h"
#include "tests/output/drawn_bitmaps.h"
#include "tests/output/png_file.h"
#include "tests/support/temporary_folder.h"

namespace tessarine {
namespace {

using testing::chunksOf;
using testing::Colour;
using testing::drawn;
using testing::DrawnBitmap;
using testing::drawnBitmaps;
using testing::pixelsByLibpng;
using testing::PNGChunk;
using Bytes = std::vector<std::uint8_t>;

Bytes encoded(const Bitmap& bitmap) {
  const auto file = encodePNG(bitmap);
  return file ? Bytes(file->bytes().begin(), file->bytes().end()) : Bytes();
}

std::vector<std::string> typesOf(const std::vector<PNGChunk>& chunks) {
  std::vector<std::string> types;
  for (const PNGChunk& chunk : chunks) types.push_back(chunk.type);
  return types;
}

TEST(PNGEncoder, WritesTheFourChunksOfAFile) {
  const Bitmap bitmap = drawn({258, 3}, [](auto, auto) { return Colour{1, 2, 3, 4}; });
  const auto chunks = chunksOf(encoded(bitmap));

  ASSERT_EQ(typesOf(chunks), (std::vector<std::string>{"IHDR", "sRGB", "IDAT", "IEND"}));
  // Width, height, 8 bits, RGBA, deflate, the five filters, not interlaced.
  EXPECT_EQ(chunks[0].data, (Bytes{0, 0, 1, 2, 0, 0, 0, 3, 8, 6, 0, 0, 0}));
  EXPECT_EQ(chunks[1].data, Bytes{0});
  EXPECT_EQ(chunks[3].data, Bytes());
}

TEST(PNGEncoder, KeepsEveryPixel) {
  for (const DrawnBitmap& drawing : drawnBitmaps()) {
    SCOPED_TRACE(drawing.name);
    const Bytes file = encoded(drawing.bitmap);
    EXPECT_EQ(chunksOf(file).size(), 4u);
    const auto expected = drawing.bitmap.pixels();
    EXPECT_EQ(pixelsByLibpng(file), Bytes(expected.begin(), expected.end()));
  }
}

TEST(PNGEncoder, KeepsTheColoursUnderTransparentPixels) {
  const Bitmap bitmap = drawn({5, 5}, [](auto, auto) { return Colour{10, 20, 30, 0}; });
  EXPECT_EQ(pixelsByLibpng(encoded(bitmap)), Bytes(bitmap.pixels().begin(), bitmap.pixels().end()));
}

TEST(PNGEncoder, IsTheSameOnEveryRun) {
  for (const DrawnBitmap& drawing : drawnBitmaps()) {
    EXPECT_EQ(encoded(drawing.bitmap), encoded(drawing.bitmap)) << drawing.name;
  }
}

TEST(PNGEncoder, SearchesLongerWhereFourOfFiveBytesAreForetold) {
  EXPECT_EQ(compressionLevel(99, 100), 6);
  EXPECT_EQ(compressionLevel(80, 100), 6);
  EXPECT_EQ(compressionLevel(79, 100), 5);
  EXPECT_EQ(compressionLevel(0, 100), 5);
}

Bytes compressedAt(int level, const Bitmap& bitmap) {
  Bytes rows(filteredByteCount(bitmap.size()));
  filterRows(bitmap, rows);
  libdeflate_compressor* compressor = libdeflate_alloc_compressor(level);
  Bytes result(libdeflate_zlib_compress_bound(compressor, rows.size()));
  result.resize(
      libdeflate_zlib_compress(compressor, rows.data(), rows.size(), result.data(), result.size()));
  libdeflate_free_compressor(compressor);
  return result;
}

TEST(PNGEncoder, ChoosesTheLevelByTheFilteredRows) {
  const auto drawing = [](std::int64_t quietRows) {
    return drawn({200, 100}, [=](auto x, auto y) {
      const auto value = static_cast<std::uint8_t>(y < quietRows ? x / 20 : x * x * (y + 7) >> 5);
      return Colour{value, value, value, 255};
    });
  };
  const Bitmap quiet = drawing(90);
  EXPECT_NE(compressedAt(6, quiet), compressedAt(5, quiet));
  EXPECT_EQ(chunksOf(encoded(quiet))[2].data, compressedAt(6, quiet));
  const Bitmap unquiet = drawing(10);
  EXPECT_NE(compressedAt(6, unquiet), compressedAt(5, unquiet));
  EXPECT_EQ(chunksOf(encoded(unquiet))[2].data, compressedAt(5, unquiet));
}

TEST(PNGEncoder, IsAcceptedByPngcheck) {
  const testing::TemporaryFolder folder;
  for (const DrawnBitmap& drawing : drawnBitmaps()) {
    const Bytes file = encoded(drawing.bitmap);
    testing::writeFile(folder.path() / (std::string(drawing.name) + ".png"),
                       {reinterpret_cast<const char*>(file.data()), file.size()});
  }
  EXPECT_EQ(std::system(("pngcheck -q '" + folder.path().string() + "'/*.png >&2").c_str()), 0);
}

}  // namespace
}  // namespace tessarine
