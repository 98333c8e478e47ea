#include "platform/vips/loader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "platform/picture.h"
#include "platform/vips/magic.h"

namespace tessarine {

namespace {

// No file of the fixed sets is larger in either direction.
constexpr double vectorWidth = 2480;
constexpr double vectorHeight = 1240;

struct FreeArea {
  void operator()(void* area) const noexcept { vips_area_unref(VIPS_AREA(area)); }
};
template <class Area>
using OwnedArea = std::unique_ptr<Area, FreeArea>;

Owned<VipsImage> loadFromSource(const char* loader, std::span<const std::uint8_t> bytes) {
  const Owned<VipsSource> source(vips_source_new_from_memory(bytes.data(), bytes.size()));
  VipsImage* image = nullptr;
  if (vips_call(loader, source.get(), &image, "access", VIPS_ACCESS_SEQUENTIAL, "fail_on",
                VIPS_FAIL_ON_TRUNCATED, nullptr) != 0) {
    return nullptr;
  }
  return Owned<VipsImage>(image);
}

Owned<VipsImage> loadFromBuffer(const char* loader, std::span<const std::uint8_t> bytes) {
  const OwnedArea<VipsBlob> blob(vips_blob_new(nullptr, bytes.data(), bytes.size()));
  VipsImage* image = nullptr;
  if (vips_call(loader, blob.get(), &image, "access", VIPS_ACCESS_SEQUENTIAL, "fail_on",
                VIPS_FAIL_ON_TRUNCATED, nullptr) != 0) {
    return nullptr;
  }
  return Owned<VipsImage>(image);
}

// ImageMagick may hand out a grey picture as red, green and blue and still call it grey.
Owned<VipsImage> namedByItsBands(Owned<VipsImage> image) {
  const auto name = vips_image_get_interpretation(image.get());
  const bool isGrey = name == VIPS_INTERPRETATION_B_W || name == VIPS_INTERPRETATION_GREY16;
  if (!isGrey || vips_image_get_bands(image.get()) < 3) return image;
  VipsImage* out = nullptr;
  const auto truth =
      name == VIPS_INTERPRETATION_B_W ? VIPS_INTERPRETATION_sRGB : VIPS_INTERPRETATION_RGB16;
  if (vips_copy(image.get(), &out, "interpretation", truth, nullptr) != 0) return nullptr;
  return Owned<VipsImage>(out);
}

Owned<VipsImage> loadRaster(const Format& format, std::span<const std::uint8_t> bytes) {
  if (!std::string_view(format.loader).ends_with("_buffer")) {
    return loadFromSource(format.loader, bytes);
  }
  auto image = loadFromBuffer(format.loader, bytes);
  return image == nullptr ? nullptr : namedByItsBands(std::move(image));
}

Owned<VipsImage> drawSVG(VipsSource* source, double scale) {
  VipsImage* image = nullptr;
  if (vips_call("svgload_source", source, &image, "access", VIPS_ACCESS_SEQUENTIAL, "fail_on",
                VIPS_FAIL_ON_ERROR, "scale", scale, nullptr) != 0) {
    return nullptr;
  }
  return Owned<VipsImage>(image);
}

// A page without its white paper: an icon keeps what was not drawn on transparent.
Owned<VipsImage> drawPDF(VipsSource* source, double scale) {
  static constexpr std::array<double, 4> clear{0, 0, 0, 0};
  const OwnedArea<VipsArrayDouble> paper(vips_array_double_new(clear.data(), 4));
  VipsImage* image = nullptr;
  if (vips_call("pdfload_source", source, &image, "access", VIPS_ACCESS_SEQUENTIAL, "scale", scale,
                "background", paper.get(), nullptr) != 0) {
    return nullptr;
  }
  return Owned<VipsImage>(image);
}

Owned<VipsImage> draw(const Format& format, std::span<const std::uint8_t> bytes, double scale) {
  const Owned<VipsSource> source(vips_source_new_from_memory(bytes.data(), bytes.size()));
  return format.recognises == magic::pdf ? drawPDF(source.get(), scale)
                                         : drawSVG(source.get(), scale);
}

bool isTooLarge(double width, double height) {
  return width * height > static_cast<double>(maximumPixels);
}

// The sizes that the library tells are rounded, so that a scale computed from them is tried and
// put right until the drawing is large enough, or as large as a bitmap may be.
Owned<VipsImage> drawLargeEnough(const Format& format, std::span<const std::uint8_t> bytes) {
  constexpr int trials = 6;
  double scale = 1;
  bool isLimited = false;
  for (int trial = 0; trial < trials; ++trial) {
    auto image = draw(format, bytes, scale);
    if (image == nullptr) return nullptr;
    const double width = vips_image_get_width(image.get());
    const double height = vips_image_get_height(image.get());
    const double wanted = std::max(vectorWidth / width, vectorHeight / height);
    const double limit = std::sqrt(static_cast<double>(maximumPixels) / (width * height));
    if (trial == 0) {
      isLimited = limit < wanted;
      scale = std::min(wanted, limit);
    } else if (isTooLarge(width, height)) {
      isLimited = true;
      scale *= std::min(limit, 0.995);
    } else if (wanted <= 1 || isLimited) {
      return image;
    } else {
      scale *= wanted;
    }
  }
  return nullptr;
}

}  // namespace

Owned<VipsImage> loadHeader(const Format& format, const ByteBuffer& bytes) {
  return format.isVector ? drawLargeEnough(format, bytes.bytes())
                         : loadRaster(format, bytes.bytes());
}

}  // namespace tessarine
