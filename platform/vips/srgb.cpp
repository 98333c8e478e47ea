#include "platform/vips/srgb.h"

#include <array>

namespace tessarine {

namespace {

using Image = Owned<VipsImage>;

// The image that an operation made, or null when it failed. Each step below passes null on.
template <class Operation>
Image made(const Operation& operation) {
  VipsImage* out = nullptr;
  if (operation(&out) != 0) return nullptr;
  return Image(out);
}

Image bands(VipsImage* image, int first, int count) {
  return made([=](auto out) { return vips_extract_band(image, out, first, "n", count, nullptr); });
}

// value x factor, rounded and kept within the range of the format.
Image scaled(VipsImage* image, double factor, VipsBandFormat format) {
  const auto product =
      made([=](auto out) { return vips_linear1(image, out, factor, 0.5, nullptr); });
  if (product == nullptr) return nullptr;
  return made([&](auto out) { return vips_cast(product.get(), out, format, nullptr); });
}

Image interpreted(VipsImage* image, VipsInterpretation interpretation) {
  return made(
      [=](auto out) { return vips_copy(image, out, "interpretation", interpretation, nullptr); });
}

Image throughProfile(VipsImage* image) {
  // The input profile is used where none is embedded.
  return made([=](auto out) {
    return vips_icc_transform(image, out, "srgb", "embedded", TRUE, "input_profile", "cmyk",
                              "intent", VIPS_INTENT_PERCEPTUAL, "depth", 8, nullptr);
  });
}

bool hasProfile(VipsImage* image) {
  return vips_image_get_typeof(image, VIPS_META_ICC_NAME) != 0;
}

Image converted(VipsImage* image) {
  const bool isCMYK = vips_image_guess_interpretation(image) == VIPS_INTERPRETATION_CMYK;
  if (isCMYK || hasProfile(image)) {
    if (auto out = throughProfile(image)) return out;
  }
  // Also when the profile is damaged or does not suit the image.
  return made(
      [=](auto out) { return vips_colourspace(image, out, VIPS_INTERPRETATION_sRGB, nullptr); });
}

// Grey as three equal bands.
Image inThreeBands(VipsImage* grey) {
  std::array<VipsImage*, 3> equal{grey, grey, grey};
  return made([&](auto out) { return vips_bandjoin(equal.data(), out, 3, nullptr); });
}

// Samples from 0 to 1: in the encoding of the profile where there is one, else linear light.
Image fromUnitRange(VipsImage* image) {
  const int count = vips_image_get_bands(image);
  auto colour = bands(image, 0, count < 3 ? 1 : 3);
  if (colour != nullptr && hasProfile(image)) {
    colour = scaled(colour.get(), 65535, VIPS_FORMAT_USHORT);
    if (colour != nullptr) {
      colour = interpreted(colour.get(),
                           count < 3 ? VIPS_INTERPRETATION_GREY16 : VIPS_INTERPRETATION_RGB16);
    }
  } else if (colour != nullptr) {
    if (count < 3) colour = inThreeBands(colour.get());
    if (colour != nullptr) colour = interpreted(colour.get(), VIPS_INTERPRETATION_scRGB);
  }
  if (colour != nullptr) colour = converted(colour.get());
  if (count != 2 && count < 4) return colour;

  const auto alpha = bands(image, count == 2 ? 1 : 3, 1);
  const auto bytes = alpha == nullptr ? nullptr : scaled(alpha.get(), 255, VIPS_FORMAT_UCHAR);
  if (colour == nullptr || bytes == nullptr) return nullptr;
  return made([&](auto out) { return vips_bandjoin2(colour.get(), bytes.get(), out, nullptr); });
}

Image fromIntegers(VipsImage* image) {
  if (vips_image_get_format(image) == VIPS_FORMAT_UINT) {
    const auto narrow = scaled(image, 1.0 / 65537, VIPS_FORMAT_USHORT);
    return narrow == nullptr ? nullptr : fromIntegers(narrow.get());
  }
  // Some loaders call a picture of one band RGB.
  if (vips_image_get_bands(image) >= 3) return converted(image);
  const bool isWide = vips_image_get_format(image) == VIPS_FORMAT_USHORT;
  const auto grey =
      interpreted(image, isWide ? VIPS_INTERPRETATION_GREY16 : VIPS_INTERPRETATION_B_W);
  return grey == nullptr ? nullptr : converted(grey.get());
}

}  // namespace

Image toSRGB(VipsImage* image) {
  const auto interpretation = vips_image_guess_interpretation(image);
  const bool isLab =
      interpretation == VIPS_INTERPRETATION_LAB || interpretation == VIPS_INTERPRETATION_LABS;
  Image out;
  if (isLab) {
    out = converted(image);
  } else if (vips_band_format_isfloat(vips_image_get_format(image))) {
    out = fromUnitRange(image);
  } else {
    out = fromIntegers(image);
  }
  // Further bands beyond the alpha mean nothing to us.
  if (out != nullptr && vips_image_get_bands(out.get()) > 4) out = bands(out.get(), 0, 4);
  if (out == nullptr || vips_image_get_format(out.get()) == VIPS_FORMAT_UCHAR) return out;
  return made([&](auto result) { return vips_cast_uchar(out.get(), result, nullptr); });
}

}  // namespace tessarine
