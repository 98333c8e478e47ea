#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tessarine::testing {

struct PNGChunk {
  std::string type;
  std::vector<std::uint8_t> data;
};

// The chunks of a whole PNG file, its signature and every chunk's check sum verified bit by bit;
// empty, with a failed expectation, when something is not as the format wants it.
std::vector<PNGChunk> chunksOf(std::span<const std::uint8_t> file);

// What libpng reads from the file as 8-bit RGBA; empty when it refuses.
std::vector<std::uint8_t> pixelsByLibpng(std::span<const std::uint8_t> file);

}  // namespace tessarine::testing
