#include "tests/headless/png_image.h"

#include <png.h>

#include <stdexcept>

namespace tessarine::testing {

const Pixel& PNGImage::at(int x, int y) const {
  return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                   static_cast<std::size_t>(x));
}

PNGImage readPNG(const std::filesystem::path& file) {
  png_image reader{};
  reader.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&reader, file.c_str()) == 0) {
    throw std::runtime_error(file.string() + ": " + reader.message);
  }
  reader.format = PNG_FORMAT_RGBA;
  PNGImage image{static_cast<int>(reader.width), static_cast<int>(reader.height), {}};
  image.pixels.resize(std::size_t{reader.width} * reader.height);
  if (png_image_finish_read(&reader, nullptr, image.pixels.data(), 0, nullptr) == 0) {
    throw std::runtime_error(file.string() + ": " + reader.message);
  }
  return image;
}

void drawPNG(const std::filesystem::path& file, int width, int height,
             const std::function<Pixel(int x, int y)>& pixelAt) {
  std::vector<Pixel> pixels;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) pixels.push_back(pixelAt(x, y));
  }
  png_image writer{};
  writer.version = PNG_IMAGE_VERSION;
  writer.width = static_cast<png_uint_32>(width);
  writer.height = static_cast<png_uint_32>(height);
  writer.format = PNG_FORMAT_RGBA;
  if (png_image_write_to_file(&writer, file.c_str(), 0, pixels.data(), 0, nullptr) == 0) {
    throw std::runtime_error(file.string() + ": " + writer.message);
  }
}

std::string sizeOfPNG(const std::filesystem::path& file) {
  const PNGImage image = readPNG(file);
  return std::to_string(image.width) + "x" + std::to_string(image.height);
}

}  // namespace tessarine::testing
