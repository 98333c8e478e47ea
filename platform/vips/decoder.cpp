#include "platform/vips/decoder.h"

#include <array>
#include <memory>
#include <utility>

#include "platform/vips/held_tiff.h"
#include "platform/vips/loader.h"
#include "platform/vips/magic.h"
#include "platform/vips/raster.h"
#include "platform/vips/srgb.h"

namespace tessarine {

namespace {

constexpr auto noPicture = "not a picture of a kind that can be read";

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

Decoded damaged(const Format& format) {
  return refused("damaged " + std::string(format.name) + " picture");
}

std::string tooManyPixels(PixelSize size) {
  return std::to_string(size.width) + " x " + std::to_string(size.height) +
         " pixels are none or more than can be read";
}

// No format that declares its size packs more pixels in a byte; a file that claims to is refused
// before its library takes memory for them.
constexpr std::int64_t maximumPixelsPerByte = 128;

bool isPlausible(PixelSize size, std::size_t fileBytes) {
  return Bitmap::byteCount(size) &&
         size.width * size.height / maximumPixelsPerByte <= static_cast<std::int64_t>(fileBytes);
}

Decoded decodeAs(const Format& format, const ByteBuffer& bytes) {
  if (format.declaredSize != nullptr) {
    const PixelSize size = format.declaredSize(headOf(bytes));
    if (!isPlausible(size, bytes.bytes().size())) return refused(tooManyPixels(size));
    if (magic::looksLikeAnother(headOf(bytes))) return damaged(format);
  }
  auto image = loadHeader(format, bytes);
  if (image == nullptr) return damaged(format);
  const PixelSize size{vips_image_get_width(image.get()), vips_image_get_height(image.get())};
  if (!Bitmap::byteCount(size)) return refused(tooManyPixels(size));

  const int orientation = vips_image_get_orientation(image.get());
  image = toSRGB(image.get());
  auto bitmap = image == nullptr ? std::nullopt : rasterise(image.get(), orientation);
  if (!bitmap) {
    return refused("damaged " + std::string(format.name) +
                   " picture, or too large for this machine");
  }
  return held(*std::move(bitmap));
}

// Preparing gives a picture of the same kind, which is then read, or of a plainer one.
Decoded decode(const ByteBuffer& bytes, const Format* sameAs) {
  if (auto bitmap = viewHeldTIFF(bytes)) return held(*std::move(bitmap));
  const Format* format = formatOf(headOf(bytes));
  if (format == nullptr) return refused(noPicture);
  if (!startVips() || !hasLoader(format->loader)) {
    return refused(std::string(format->name) + " cannot be read on this machine");
  }
  const ClearMessages atTheEnd;
  if (format->prepare == nullptr || format == sameAs) return decodeAs(*format, bytes);
  const auto prepared = format->prepare(bytes);
  return prepared ? decode(*prepared, format) : damaged(*format);
}

}  // namespace

bool canBeRead(const Format& format) {
  if (!startVips() || !hasLoader(format.loader)) return false;
  if (format.sample == nullptr) return true;
  std::size_t size = 0;
  const std::shared_ptr<guchar> sample(g_base64_decode(format.sample, &size), g_free);
  return decodePicture(ByteBuffer({sample.get(), size}, sample)).picture.has_value();
}

Decoded decodePicture(const ByteBuffer& bytes) {
  return decode(bytes, nullptr);
}

std::string refusalOf(const RegularFile& file) {
  if (!file.refusal().empty()) return file.refusal();
  // Large files that are no pictures are not read at all.
  std::array<std::uint8_t, headSize> room{};
  return formatOf(file.head(room)) == nullptr ? noPicture : "";
}

Decoded decodePicture(const RegularFile& file) {
  if (std::string refusal = refusalOf(file); !refusal.empty()) return refused(std::move(refusal));
  const auto bytes = file.bytes();
  if (!bytes) return refused("the file cannot be read, or is too large for this machine");
  return decodePicture(*bytes);
}

Decoded decodePictureFile(const std::string& path) {
  return decodePicture(RegularFile(path));
}

}  // namespace tessarine
