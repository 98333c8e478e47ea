#include "output/png_encoder.h"

#include <libdeflate.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include "output/png_chunks.h"
#include "output/png_filters.h"

namespace tessarine {

namespace {

struct FreeCompressor {
  void operator()(libdeflate_compressor* compressor) const noexcept {
    libdeflate_free_compressor(compressor);
  }
};
using Compressor = std::unique_ptr<libdeflate_compressor, FreeCompressor>;

using Header = std::array<std::uint8_t, 13>;
constexpr std::array<std::uint8_t, 1> perceptualIntent{0};

constexpr std::size_t wholeChunk(std::size_t dataBytes) {
  return PNGChunkWriter::chunkOverhead + dataBytes;
}
constexpr std::size_t fixedBytes = pngSignature.size() + wholeChunk(std::tuple_size_v<Header>) +
                                   wholeChunk(perceptualIntent.size()) + wholeChunk(0) +
                                   wholeChunk(0);

// The largest bitmap, one pixel wide, fits one data chunk even if it does not shrink: deflate adds
// less than one byte to 256.
static_assert(maximumPixels * (1 + Bitmap::bytesPerPixel) / 256 * 257 <
              PNGChunkWriter::maximumData);

Header header(PixelSize size) {
  constexpr std::uint8_t bitDepth = 8;
  constexpr std::uint8_t redGreenBlueAlpha = 6;
  Header bytes{0, 0, 0, 0, 0, 0, 0, 0, bitDepth, redGreenBlueAlpha};
  const std::span span(bytes);
  storeBigEndian(static_cast<std::uint32_t>(size.width), span.first<4>());
  storeBigEndian(static_cast<std::uint32_t>(size.height), span.subspan<4, 4>());
  return bytes;
}

}  // namespace

int compressionLevel(std::size_t zeros, std::size_t filteredBytes) noexcept {
  // Measured (docs/performance.md): where nearly all is foretold, a longer search for repetitions
  // makes a file 3 to 5 % smaller; a photograph's not at all.
  return zeros >= filteredBytes / 5 * 4 ? 6 : 5;
}

std::optional<ByteBuffer> encodePNG(const Bitmap& bitmap) {
  auto filtered = MemoryBlock::allocate(filteredByteCount(bitmap.size()));
  if (!filtered) return std::nullopt;
  const std::size_t filteredBytes = filtered->bytes().size();
  const std::size_t zeros = filterRows(bitmap, filtered->bytes());

  const Compressor compressor(libdeflate_alloc_compressor(compressionLevel(zeros, filteredBytes)));
  if (!compressor) return std::nullopt;
  const std::size_t bound = libdeflate_zlib_compress_bound(compressor.get(), filteredBytes);
  auto file = MemoryBlock::allocate(fixedBytes + bound);
  if (!file) return std::nullopt;

  PNGChunkWriter chunks(file->bytes());
  chunks.write("IHDR", header(bitmap.size()));
  // Alone: gAMA and cHRM beside it would add 60 bytes to icons of a few hundred.
  chunks.write("sRGB", perceptualIntent);
  const std::size_t compressed = libdeflate_zlib_compress(
      compressor.get(), filtered->bytes().data(), filteredBytes, chunks.openData().data(), bound);
  if (compressed == 0) return std::nullopt;
  chunks.closeChunk("IDAT", compressed);
  chunks.write("IEND", {});

  const std::size_t byteCount = chunks.byteCount();
  return ByteBuffer(*std::move(file)).slice(0, byteCount);
}

}  // namespace tessarine
