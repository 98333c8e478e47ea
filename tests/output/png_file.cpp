#include "tests/output/png_file.h"

#include <gtest/gtest.h>
#include <png.h>

namespace tessarine::testing {

namespace {

std::uint32_t bigEndian(std::span<const std::uint8_t> bytes) {
  return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
         std::uint32_t{bytes[2]} << 8 | bytes[3];
}

std::uint32_t checkSum(std::span<const std::uint8_t> bytes) {
  std::uint32_t sum = 0xffff'ffff;
  for (const std::uint8_t byte : bytes) {
    sum ^= byte;
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ (sum & 1 ? 0xedb8'8320 : 0);
  }
  return ~sum;
}

}  // namespace

std::vector<PNGChunk> chunksOf(std::span<const std::uint8_t> file) {
  const std::string signature = "\x89PNG\r\n\x1a\n";
  if (file.size() < 8 || std::string(file.begin(), file.begin() + 8) != signature) {
    ADD_FAILURE() << "no signature";
    return {};
  }
  std::vector<PNGChunk> chunks;
  for (auto rest = file.subspan(8); !rest.empty();) {
    const std::size_t length = rest.size() < 12 ? rest.size() : bigEndian(rest);
    if (length > rest.size() - 12) {
      ADD_FAILURE() << "chunk " << chunks.size() << " is cut off";
      return {};
    }
    const auto covered = rest.subspan(4, 4 + length);
    EXPECT_EQ(bigEndian(rest.subspan(8 + length)), checkSum(covered));
    chunks.push_back(
        {std::string(covered.begin(), covered.begin() + 4), {covered.begin() + 4, covered.end()}});
    rest = rest.subspan(12 + length);
  }
  return chunks;
}

std::vector<std::uint8_t> pixelsByLibpng(std::span<const std::uint8_t> file) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_memory(&image, file.data(), file.size()) == 0) return {};
  image.format = PNG_FORMAT_RGBA;
  std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(image));
  if (png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) == 0) return {};
  EXPECT_EQ(image.warning_or_error, 0u) << image.message;
  return pixels;
}

}  // namespace tessarine::testing
