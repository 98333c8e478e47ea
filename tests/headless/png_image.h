#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tessarine::testing {

using Pixel = std::array<std::uint8_t, 4>;

// A picture as libpng reads and writes it, apart from the program's own code.
struct PNGImage {
  int width = 0;
  int height = 0;
  std::vector<Pixel> pixels;

  const Pixel& at(int x, int y) const;
};

// Throws when libpng does not accept the file.
PNGImage readPNG(const std::filesystem::path& file);

void drawPNG(const std::filesystem::path& file, int width, int height,
             const std::function<Pixel(int x, int y)>& pixelAt);

// "WxH".
std::string sizeOfPNG(const std::filesystem::path& file);

}  // namespace tessarine::testing
