#include "platform/vips/loader.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "platform/picture.h"

namespace tessarine {

namespace {

// No file of the fixed sets is larger in either direction.
constexpr double vectorWidth = 2480;
constexpr double vectorHeight = 1240;
// What cairo can draw.
constexpr double vectorMaximumSide = 32767;

struct FreeArea {
  void operator()(void* area) const noexcept { vips_area_unref(VIPS_AREA(area)); }
};
template <class Area>
using OwnedArea = std::unique_ptr<Area, FreeArea>;

Owned<VipsImage> loadRaster(const Format& format, std::span<const std::uint8_t> bytes) {
  VipsImage* image = nullptr;
  int failed = 0;
  if (std::string_view(format.loader).ends_with("_buffer")) {
    const OwnedArea<VipsBlob> blob(vips_blob_new(nullptr, bytes.data(), bytes.size()));
    failed = vips_call(format.loader, blob.get(), &image, "access", VIPS_ACCESS_SEQUENTIAL,
                       "fail_on", VIPS_FAIL_ON_TRUNCATED, nullptr);
  } else {
    const Owned<VipsSource> source(vips_source_new_from_memory(bytes.data(), bytes.size()));
    failed = vips_call(format.loader, source.get(), &image, "access", VIPS_ACCESS_SEQUENTIAL,
                       "fail_on", VIPS_FAIL_ON_TRUNCATED, nullptr);
  }
  return Owned<VipsImage>(failed == 0 ? image : nullptr);
}

Owned<VipsImage> loadVector(const Format& format, std::span<const std::uint8_t> bytes,
                            double scale) {
  const Owned<VipsSource> source(vips_source_new_from_memory(bytes.data(), bytes.size()));
  VipsImage* image = nullptr;
  if (vips_call(format.loader, source.get(), &image, "access", VIPS_ACCESS_SEQUENTIAL, "scale",
                scale, nullptr) != 0) {
    return nullptr;
  }
  return Owned<VipsImage>(image);
}

// By how much to enlarge a drawing of this size: to be as large as the largest file in both
// directions, within the limits of a bitmap.
double enlargement(double width, double height) {
  const double wanted = std::max(vectorWidth / width, vectorHeight / height);
  const double sideLimit = vectorMaximumSide / std::max(width, height);
  const double areaLimit = std::sqrt(static_cast<double>(maximumPixels) / (width * height));
  return std::min({wanted, sideLimit, areaLimit});
}

}  // namespace

Owned<VipsImage> loadHeader(const Format& format, const ByteBuffer& bytes) {
  if (!format.isVector) return loadRaster(format, bytes.bytes());
  auto image = loadVector(format, bytes.bytes(), 1);
  if (image == nullptr) return nullptr;
  const double width = vips_image_get_width(image.get());
  const double height = vips_image_get_height(image.get());
  return loadVector(format, bytes.bytes(), enlargement(width, height));
}

}  // namespace tessarine
