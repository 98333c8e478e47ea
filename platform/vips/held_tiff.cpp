#include "platform/vips/held_tiff.h"

#include <tiffio.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <utility>

namespace tessarine {

namespace {

// Room for the directory, which libtiff places after the strip.
constexpr std::size_t directoryRoom = 4096;

// What libtiff writes to: memory of a fixed size.
struct MemoryFile {
  std::span<std::uint8_t> room;
  std::uint64_t position = 0;
  std::uint64_t end = 0;
};

MemoryFile& fileOf(thandle_t handle) {
  return *static_cast<MemoryFile*>(handle);
}

tmsize_t readBytes(thandle_t handle, void* to, tmsize_t wanted) {
  MemoryFile& file = fileOf(handle);
  const auto left = file.end - std::min(file.end, file.position);
  const auto count = std::min(left, static_cast<std::uint64_t>(wanted));
  std::memcpy(to, file.room.data() + file.position, count);
  file.position += count;
  return static_cast<tmsize_t>(count);
}

tmsize_t writeBytes(thandle_t handle, void* from, tmsize_t count) {
  MemoryFile& file = fileOf(handle);
  const auto size = static_cast<std::uint64_t>(count);
  if (file.position > file.room.size() || size > file.room.size() - file.position) return 0;
  std::memcpy(file.room.data() + file.position, from, size);
  file.position += size;
  file.end = std::max(file.end, file.position);
  return count;
}

toff_t seek(thandle_t handle, toff_t offset, int whence) {
  MemoryFile& file = fileOf(handle);
  if (whence == SEEK_CUR) offset += file.position;
  if (whence == SEEK_END) offset += file.end;
  return file.position = offset;
}

toff_t fileSize(thandle_t handle) {
  return fileOf(handle).end;
}
int closeFile(thandle_t) {
  return 0;
}

int saysNothing(TIFF*, void*, const char*, const char*, va_list) {
  return 1;
}

struct CloseTIFF {
  void operator()(TIFF* tiff) const noexcept { TIFFClose(tiff); }
};
using OpenTIFF = std::unique_ptr<TIFF, CloseTIFF>;

OpenTIFF openForWriting(MemoryFile& file) {
  TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
  TIFFOpenOptionsSetErrorHandlerExtR(options, saysNothing, nullptr);
  TIFFOpenOptionsSetWarningHandlerExtR(options, saysNothing, nullptr);
  // "l": little-endian on every processor.
  OpenTIFF tiff(TIFFClientOpenExt("held", "wl", &file, readBytes, writeBytes, seek, closeFile,
                                  fileSize, nullptr, nullptr, options));
  TIFFOpenOptionsFree(options);
  return tiff;
}

bool write(TIFF& tiff, const Bitmap& bitmap) {
  constexpr double pixelsPerInch = 72;
  const auto width = static_cast<std::uint32_t>(bitmap.size().width);
  const auto height = static_cast<std::uint32_t>(bitmap.size().height);
  const std::uint16_t alpha = EXTRASAMPLE_UNASSALPHA;
  const bool described = TIFFSetField(&tiff, TIFFTAG_IMAGEWIDTH, width) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_IMAGELENGTH, height) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_BITSPERSAMPLE, 8) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_SAMPLESPERPIXEL, 4) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_ROWSPERSTRIP, height) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_XRESOLUTION, pixelsPerInch) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_YRESOLUTION, pixelsPerInch) != 0 &&
                         TIFFSetField(&tiff, TIFFTAG_EXTRASAMPLES, 1, &alpha) != 0;
  if (!described) return false;
  const auto pixels = bitmap.pixels();
  // libtiff takes the strip by a pointer that is not const and, uncompressed, only reads it.
  auto* strip = const_cast<std::uint8_t*>(pixels.data());  // NOLINT(*-const-cast)
  const auto count = static_cast<tmsize_t>(pixels.size());
  return TIFFWriteRawStrip(&tiff, 0, strip, count) == count && TIFFWriteDirectory(&tiff) != 0;
}

}  // namespace

std::optional<ByteBuffer> writeHeldTIFF(const Bitmap& bitmap) {
  auto block = MemoryBlock::allocate(bitmap.pixels().size() + directoryRoom);
  if (!block) return std::nullopt;
  MemoryFile file{block->bytes()};
  const auto tiff = openForWriting(file);
  if (!tiff || !write(*tiff, bitmap)) return std::nullopt;
  return ByteBuffer(*std::move(block)).slice(0, static_cast<std::size_t>(file.end));
}

}  // namespace tessarine
