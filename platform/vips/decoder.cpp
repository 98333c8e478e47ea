#include "platform/vips/decoder.h"

#include <array>
#include <utility>

#include "platform/vips/formats.h"
#include "platform/vips/held_tiff.h"
#include "platform/vips/loader.h"
#include "platform/vips/raster.h"
#include "platform/vips/regular_file.h"
#include "platform/vips/srgb.h"

namespace tessarine {

namespace {

constexpr std::chrono::seconds patience{10};

// libvips gathers its messages for ever when nobody throws them away.
struct ClearMessages {
  ~ClearMessages() { vips_error_clear(); }
};

Decoded refused(std::string reason) {
  return {std::nullopt, std::move(reason)};
}

Decoded held(Bitmap bitmap) {
  const PixelSize size = bitmap.size();
  return {Picture{size, std::move(bitmap)}, {}};
}

Decoded decodeWith(const Format& format, const ByteBuffer& bytes) {
  const std::string name(format.name);
  if (!startVips() || !hasLoader(format.loader)) return refused(name + " cannot be read here");
  const ClearMessages atTheEnd;
  const Deadline deadline = std::chrono::steady_clock::now() + patience;

  auto image = loadHeader(format, bytes);
  if (image == nullptr) return refused("damaged " + name + " picture");
  // Before any memory is taken for pixels.
  const PixelSize size{vips_image_get_width(image.get()), vips_image_get_height(image.get())};
  if (!Bitmap::byteCount(size)) {
    return refused(std::to_string(size.width) + " x " + std::to_string(size.height) +
                   " pixels are more than can be read");
  }
  const int orientation = vips_image_get_orientation(image.get());
  image = toSRGB(std::move(image));
  auto bitmap = image == nullptr ? std::nullopt : rasterise(image.get(), orientation, deadline);
  if (!bitmap) return refused("damaged " + name + " picture, or too large for this machine");
  return held(*std::move(bitmap));
}

}  // namespace

Decoded decodePicture(const ByteBuffer& bytes) {
  if (auto bitmap = viewHeldTIFF(bytes)) return held(*std::move(bitmap));
  const Format* format = formatOf(bytes.bytes().first(std::min(headSize, bytes.bytes().size())));
  if (format == nullptr) return refused("not a picture of a kind that can be read");
  return decodeWith(*format, bytes);
}

Decoded decodePictureFile(const std::string& path) {
  const RegularFile file(path);
  if (!file.refusal().empty()) return refused(file.refusal());
  // Large files that are no pictures are not read at all.
  std::array<std::uint8_t, headSize> room{};
  if (formatOf(file.head(room)) == nullptr) {
    return refused("not a picture of a kind that can be read");
  }
  const auto bytes = file.bytes();
  if (!bytes) return refused("the file is too large for this machine");
  return decodePicture(*bytes);
}

}  // namespace tessarine
