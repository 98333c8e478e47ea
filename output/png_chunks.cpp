#include "output/png_chunks.h"

#include <libdeflate.h>

#include <algorithm>

namespace tessarine {

namespace {

constexpr std::size_t lengthBytes = 4;
constexpr std::size_t typeBytes = 4;

}  // namespace

void storeBigEndian(std::uint32_t value, std::span<std::uint8_t, 4> bytes) {
  for (std::uint8_t& byte : bytes) {
    byte = static_cast<std::uint8_t>(value >> 24);
    value <<= 8;
  }
}

PNGChunkWriter::PNGChunkWriter(std::span<std::uint8_t> file) : file_(file) {
  std::ranges::copy(pngSignature, file_.begin());
}

void PNGChunkWriter::write(std::string_view type, std::span<const std::uint8_t> data) {
  std::ranges::copy(data, openData().begin());
  closeChunk(type, data.size());
}

std::span<std::uint8_t> PNGChunkWriter::openData() const {
  return file_.subspan(used_).subspan(lengthBytes + typeBytes);
}

void PNGChunkWriter::closeChunk(std::string_view type, std::size_t dataBytes) {
  const auto chunk = file_.subspan(used_, chunkOverhead + dataBytes);
  storeBigEndian(static_cast<std::uint32_t>(dataBytes), chunk.first<4>());
  std::ranges::copy(type, chunk.subspan(lengthBytes).begin());
  const auto covered = chunk.subspan(lengthBytes, typeBytes + dataBytes);
  storeBigEndian(libdeflate_crc32(0, covered.data(), covered.size()), chunk.last<4>());
  used_ += chunk.size();
}

}  // namespace tessarine
