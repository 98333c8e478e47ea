#include "benchmarks/libpng_encoder.h"

#include <png.h>

#include <cstdint>
#include <vector>

namespace tessarine::benchmarks {

std::size_t encodedByLibpng(const Bitmap& bitmap) {
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  std::vector<std::uint8_t> file;
  png_set_write_fn(
      png, &file,
      [](png_structp writer, png_bytep bytes, std::size_t count) {
        auto* out = static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(writer));
        out->insert(out->end(), bytes, bytes + count);
      },
      nullptr);
  png_set_compression_level(png, 6);
  png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_ALL_FILTERS);
  png_set_IHDR(png, info, static_cast<png_uint_32>(bitmap.size().width),
               static_cast<png_uint_32>(bitmap.size().height), 8, PNG_COLOR_TYPE_RGB_ALPHA,
               PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(png, info);
  for (std::int64_t y = 0; y < bitmap.size().height; ++y) {
    png_write_row(png, bitmap.row(y).data());
  }
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  return file.size();
}

}  // namespace tessarine::benchmarks
