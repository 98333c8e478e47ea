#include "platform/vips/srgb.h"

namespace tessarine {

namespace {

Owned<VipsImage> throughProfile(VipsImage* image) {
  VipsImage* out = nullptr;
  // The input profile is used where none is embedded.
  if (vips_icc_transform(image, &out, "srgb", "embedded", TRUE, "input_profile", "cmyk", "intent",
                         VIPS_INTENT_PERCEPTUAL, "depth", 8, nullptr) != 0) {
    return nullptr;
  }
  return Owned<VipsImage>(out);
}

Owned<VipsImage> byInterpretation(VipsImage* image) {
  VipsImage* out = nullptr;
  if (vips_colourspace(image, &out, VIPS_INTERPRETATION_sRGB, nullptr) != 0) return nullptr;
  return Owned<VipsImage>(out);
}

Owned<VipsImage> inBytes(Owned<VipsImage> image) {
  if (image == nullptr || vips_image_get_format(image.get()) == VIPS_FORMAT_UCHAR) return image;
  VipsImage* out = nullptr;
  if (vips_cast_uchar(image.get(), &out, nullptr) != 0) return nullptr;
  return Owned<VipsImage>(out);
}

// Further bands beyond the alpha mean nothing to us.
Owned<VipsImage> atMostFourBands(Owned<VipsImage> image) {
  if (image == nullptr || vips_image_get_bands(image.get()) <= 4) return image;
  VipsImage* out = nullptr;
  if (vips_extract_band(image.get(), &out, 0, "n", 4, nullptr) != 0) return nullptr;
  return Owned<VipsImage>(out);
}

}  // namespace

Owned<VipsImage> toSRGB(Owned<VipsImage> image) {
  const bool isCMYK = vips_image_guess_interpretation(image.get()) == VIPS_INTERPRETATION_CMYK;
  Owned<VipsImage> converted;
  if (isCMYK || vips_image_get_typeof(image.get(), VIPS_META_ICC_NAME) != 0) {
    converted = throughProfile(image.get());
  }
  // Also when the profile is damaged or does not suit the image.
  if (converted == nullptr) converted = byInterpretation(image.get());
  return atMostFourBands(inBytes(std::move(converted)));
}

}  // namespace tessarine
