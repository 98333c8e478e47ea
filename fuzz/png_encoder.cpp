#include "output/png_encoder.h"

#include <png.h>

#include <algorithm>
#include <vector>

#include "fuzz/fuzzing.h"

using namespace tessarine;

// libpng reads the same pixels.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzzing::Input input(data, size);
  const PixelSize pixels{input.number() % 300 + 1, input.byte() % 64 + 1};
  const Bitmap bitmap = input.bitmap(pixels);
  const auto encoded = required(encodePNG(bitmap));

  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  fuzzing::expect(png_image_begin_read_from_memory(&image, encoded.bytes().data(),
                                                   encoded.bytes().size()) != 0);
  image.format = PNG_FORMAT_RGBA;
  std::vector<std::uint8_t> read(PNG_IMAGE_SIZE(image));
  fuzzing::expect(png_image_finish_read(&image, nullptr, read.data(), 0, nullptr) != 0);
  fuzzing::expect(std::ranges::equal(read, bitmap.pixels()));
  return 0;
}
