#include "platform/vips/raster.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace tessarine {

namespace {

// Rows that are decoded at once: few, so that memory stays small, yet enough for the libraries to
// work in long runs.
constexpr int stripRows = 64;

// Where stored pixels go when the picture is turned upright. Writing them to their place at once
// needs no second bitmap.
struct Placement {
  PixelSize size;                       // upright
  std::ptrdiff_t origin, stepX, stepY;  // in pixels

  Placement(int width, int height, int orientation) {
    // Values of the EXIF tag: 5 to 8 swap rows and columns; these end at the right or the bottom.
    const bool swaps = orientation >= 5;
    const bool fromRight =
        orientation == 2 || orientation == 3 || orientation == 6 || orientation == 7;
    const bool fromBottom =
        orientation == 3 || orientation == 4 || orientation == 7 || orientation == 8;
    size = swaps ? PixelSize{height, width} : PixelSize{width, height};
    const std::ptrdiff_t across = fromRight ? -1 : 1;
    const std::ptrdiff_t down = fromBottom ? -size.width : size.width;
    origin = (fromRight ? size.width - 1 : 0) + (fromBottom ? (size.height - 1) * size.width : 0);
    stepX = swaps ? down : across;
    stepY = swaps ? across : down;
  }
};

using Pixel = std::array<std::uint8_t, Bitmap::bytesPerPixel>;

// `bands` is 3 or 4.
void placeRow(const std::uint8_t* from, int width, int bands, std::uint8_t* to,
              std::ptrdiff_t step) {
  const auto stride = step * static_cast<std::ptrdiff_t>(Bitmap::bytesPerPixel);
  for (int x = 0; x < width; ++x, from += bands, to += stride) {
    const Pixel pixel{from[0], from[1], from[2], bands == 4 ? from[3] : std::uint8_t{255}};
    std::ranges::copy(pixel, to);
  }
}

// libvips leaves a tile of a drawing blank when it has no memory for it. Only its messages tell so.
bool lacksTiles() {
  return std::string_view(vips_error_buffer()).find("vips_tracked") != std::string_view::npos;
}

}  // namespace

std::optional<Bitmap> rasterise(VipsImage* image, int orientation) {
  const int width = vips_image_get_width(image);
  const int height = vips_image_get_height(image);
  const int bands = vips_image_get_bands(image);
  const Placement placement(width, height, orientation);
  const auto byteCount = Bitmap::byteCount(placement.size);
  auto block = byteCount ? MemoryBlock::allocate(*byteCount) : std::nullopt;
  const Owned<VipsRegion> region(vips_region_new(image));
  if (!block || region == nullptr || bands < 3) return std::nullopt;

  for (int top = 0; top < height; top += stripRows) {
    const VipsRect strip{0, top, width, std::min(stripRows, height - top)};
    if (vips_region_prepare(region.get(), &strip) != 0) return std::nullopt;
    for (int y = top; y < top + strip.height; ++y) {
      const auto first = placement.origin + y * placement.stepY;
      placeRow(VIPS_REGION_ADDR(region.get(), 0, y), width, bands,
               block->bytes().data() + first * static_cast<std::ptrdiff_t>(Bitmap::bytesPerPixel),
               placement.stepX);
    }
  }
  if (lacksTiles()) return std::nullopt;
  return Bitmap(placement.size, ByteBuffer(*std::move(block)));
}

}  // namespace tessarine
