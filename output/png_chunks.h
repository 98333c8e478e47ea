#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tessarine {

inline constexpr std::array<std::uint8_t, 8> pngSignature{0x89, 'P',  'N',  'G',
                                                          '\r', '\n', 0x1a, '\n'};

void storeBigEndian(std::uint32_t value, std::span<std::uint8_t, 4> bytes);

// Lays a PNG file's chunks one after the other into memory that the caller owns and that must
// suffice. Begins with the file's signature.
class PNGChunkWriter {
 public:
  // The bytes of a chunk beside its data.
  static constexpr std::size_t chunkOverhead = 12;
  // The most bytes of data that the format lets one chunk have.
  static constexpr std::size_t maximumData = 0x7fff'ffff;

  explicit PNGChunkWriter(std::span<std::uint8_t> file);

  // A whole chunk; `type` has four characters.
  void write(std::string_view type, std::span<const std::uint8_t> data);

  // The same for data made in place: first its bytes are put into `openData`, then the first
  // `dataBytes` of them become a chunk.
  std::span<std::uint8_t> openData() const;
  void closeChunk(std::string_view type, std::size_t dataBytes);

  std::size_t byteCount() const { return used_; }

 private:
  std::span<std::uint8_t> file_;
  std::size_t used_ = pngSignature.size();
};

}  // namespace tessarine
