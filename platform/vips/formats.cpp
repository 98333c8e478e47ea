#include "platform/vips/formats.h"

#include <array>

#include "platform/vips/magic.h"
#include "platform/vips/preparation.h"
#include "platform/vips/samples.h"

namespace tessarine {

namespace {

template <std::size_t count>
using Types = std::array<std::string_view, count>;

constexpr Types<1> pngTypes{"image/png"};
constexpr Types<1> jpegTypes{"image/jpeg"};
constexpr Types<1> tiffTypes{"image/tiff"};
constexpr Types<1> gifTypes{"image/gif"};
constexpr Types<1> webpTypes{"image/webp"};
constexpr Types<1> svgTypes{"image/svg+xml"};
constexpr Types<1> svgzTypes{"image/svg+xml-compressed"};
constexpr Types<1> pdfTypes{"application/pdf"};
constexpr Types<2> heicTypes{"image/heif", "image/heic"};
constexpr Types<1> avifTypes{"image/avif"};
constexpr Types<1> jpegXLTypes{"image/jxl"};
constexpr Types<3> jpeg2000Types{"image/jp2", "image/jpx", "image/x-jp2-codestream"};
constexpr Types<1> icnsTypes{"image/x-icns"};
constexpr Types<1> icoTypes{"image/vnd.microsoft.icon"};
constexpr Types<1> bmpTypes{"image/bmp"};
constexpr Types<1> psdTypes{"image/vnd.adobe.photoshop"};
constexpr Types<1> tgaTypes{"image/x-tga"};

// TGA, which has no magic number, comes last.
constexpr std::array<Format, 17> allFormats{{
    {"PNG", pngTypes, magic::png, "pngload_source", false, preparation::withoutTexts},
    {"JPEG", jpegTypes, magic::jpeg, "jpegload_source", false, preparation::ofFewScans},
    {"TIFF", tiffTypes, magic::tiff, "tiffload_source"},
    {"GIF", gifTypes, magic::gif, "gifload_source"},
    {"WebP", webpTypes, magic::webp, "webpload_source"},
    {"SVG", svgTypes, magic::svg, "svgload_source", true, preparation::withBearablePictures},
    {"SVGZ", svgzTypes, magic::svgz, "svgload_source", false, preparation::inflatedSVG},
    {"PDF", pdfTypes, magic::pdf, "pdfload_source", true},
    {"HEIC", heicTypes, magic::heic, "heifload_source", false, nullptr, nullptr, samples::heic},
    {"AVIF", avifTypes, magic::avif, "heifload_source", false, nullptr, nullptr, samples::avif},
    {"JPEG XL", jpegXLTypes, magic::jpegXL, "jxlload_source"},
    {"JPEG 2000", jpeg2000Types, magic::jpeg2000, "jp2kload_source"},
    {"ICNS", icnsTypes, magic::icns, "pngload_source", false, preparation::largestOfICNS},
    {"ICO", icoTypes, magic::ico, "magickload_buffer", false, preparation::largestOfICO, nullptr,
     samples::ico},
    {"BMP", bmpTypes, magic::bmp, "magickload_buffer", false, nullptr, magic::sizeOfBMP,
     samples::bmp},
    {"PSD", psdTypes, magic::psd, "magickload_buffer", false, nullptr, magic::sizeOfPSD,
     samples::psd},
    {"TGA", tgaTypes, magic::tga, "magickload_buffer", false, nullptr, magic::sizeOfTGA,
     samples::tga},
}};

}  // namespace

std::span<const Format> formats() {
  return allFormats;
}

const Format* formatOf(Head head) {
  for (const Format& format : allFormats) {
    if (format.recognises(head)) return &format;
  }
  return nullptr;
}

}  // namespace tessarine
