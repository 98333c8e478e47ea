#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/picture.h"

namespace tessarine::testing {

// What the six blocks of a sample are expected to look like: as drawn, or as `colours.txt` in the
// samples' folder says, which LittleCMS's own tool has computed.
enum class Blocks {
  opaque,
  clear,   // one block transparent, one half so
  binary,  // one block transparent
  grey,
  greyClear,
  blackAndWhite,
  p3,
  p3Clear,
  adobe,
  greyProfile,
  cmyk,
};

struct Sample {
  std::string_view format;
  // What it stands for in the list of what has been tested.
  std::string_view what;
  std::string_view file;
  Blocks blocks;
  PixelSize size{48, 32};
  int tolerance = 2;
};

// Ink without a profile has no one colour; the usual ones agree about this much.
inline constexpr int roughly = 40;
inline constexpr PixelSize drawn{2480, 1653};

inline constexpr auto samples = std::to_array<Sample>({
    {"PNG", "8 bits", "rgb.png", Blocks::opaque},
    {"PNG", "8 bits", "rgba.png", Blocks::clear},
    {"PNG", "palette with transparency", "palette.png", Blocks::clear},
    {"PNG", "grey", "grey.png", Blocks::grey},
    {"PNG", "grey with alpha", "grey_alpha.png", Blocks::greyClear},
    {"PNG", "16 bits", "rgba16.png", Blocks::clear},
    {"PNG", "16 bits", "grey16.png", Blocks::grey},
    {"PNG", "interlaced", "interlaced.png", Blocks::clear},
    {"PNG", "profiles", "p3.png", Blocks::p3},
    {"PNG", "profiles", "p3_16.png", Blocks::p3},
    {"PNG", "profiles", "p3_alpha.png", Blocks::p3Clear},
    {"PNG", "profiles", "adobe.png", Blocks::adobe},
    {"PNG", "profiles", "grey_profile.png", Blocks::greyProfile},
    {"JPEG", "baseline", "rgb.jpg", Blocks::opaque},
    {"JPEG", "progressive", "progressive.jpg", Blocks::opaque},
    {"JPEG", "grey", "grey.jpg", Blocks::grey},
    {"JPEG", "CMYK without a profile", "cmyk.jpg", Blocks::cmyk, {48, 32}, roughly},
    {"JPEG", "CMYK with a profile", "cmyk_profile.jpg", Blocks::cmyk},
    {"JPEG", "the eight orientations", "orientation1.jpg", Blocks::opaque},
    {"JPEG", "the eight orientations", "orientation2.jpg", Blocks::opaque},
    {"JPEG", "the eight orientations", "orientation3.jpg", Blocks::opaque},
    {"JPEG", "the eight orientations", "orientation4.jpg", Blocks::opaque},
    {"JPEG", "the eight orientations", "orientation5.jpg", Blocks::opaque},
    {"JPEG", "the eight orientations", "orientation6.jpg", Blocks::opaque},
    {"JPEG", "the eight orientations", "orientation7.jpg", Blocks::opaque},
    {"JPEG", "the eight orientations", "orientation8.jpg", Blocks::opaque},
    {"JPEG", "profiles", "p3.jpg", Blocks::p3},
    {"JPEG", "profiles", "adobe.jpg", Blocks::adobe},
    {"JPEG", "profiles", "grey_profile.jpg", Blocks::greyProfile},
    {"TIFF", "LZW", "lzw.tif", Blocks::clear},
    {"TIFF", "deflate", "deflate.tif", Blocks::clear},
    {"TIFF", "CCITT group 4", "bilevel.tif", Blocks::blackAndWhite},
    {"TIFF", "tiled", "tiled.tif", Blocks::clear},
    {"TIFF", "planar", "planar.tif", Blocks::clear},
    {"TIFF", "big-endian", "big_endian.tif", Blocks::clear},
    {"TIFF", "BigTIFF", "big.tif", Blocks::clear},
    {"TIFF", "palette", "palette.tif", Blocks::opaque},
    {"TIFF", "grey", "grey.tif", Blocks::grey},
    {"TIFF", "16 bits", "rgba16.tif", Blocks::clear},
    {"TIFF", "alpha multiplied in", "associated.tif", Blocks::clear},
    {"TIFF", "floating point", "float.tif", Blocks::clear},
    {"TIFF", "floating point", "float_p3.tif", Blocks::p3},
    {"TIFF", "CMYK without a profile", "cmyk.tif", Blocks::cmyk, {48, 32}, roughly},
    {"TIFF", "CMYK with a profile", "cmyk_profile.tif", Blocks::cmyk},
    {"TIFF", "CMYK with a profile", "cmyk16_profile.tif", Blocks::cmyk},
    {"TIFF", "the eight orientations", "orientation1.tif", Blocks::opaque},
    {"TIFF", "the eight orientations", "orientation2.tif", Blocks::opaque},
    {"TIFF", "the eight orientations", "orientation3.tif", Blocks::opaque},
    {"TIFF", "the eight orientations", "orientation4.tif", Blocks::opaque},
    {"TIFF", "the eight orientations", "orientation5.tif", Blocks::opaque},
    {"TIFF", "the eight orientations", "orientation6.tif", Blocks::opaque},
    {"TIFF", "the eight orientations", "orientation7.tif", Blocks::opaque},
    {"TIFF", "the eight orientations", "orientation8.tif", Blocks::opaque},
    {"TIFF", "several pages (the first)", "pages.tif", Blocks::clear},
    {"TIFF", "profiles", "p3.tif", Blocks::p3},
    {"TIFF", "profiles", "adobe.tif", Blocks::adobe},
    {"TIFF", "profiles", "grey_profile.tif", Blocks::greyProfile},
    {"GIF", "opaque", "rgb.gif", Blocks::opaque},
    {"GIF", "transparent", "transparent.gif", Blocks::binary},
    {"GIF", "animated (the first frame)", "animated.gif", Blocks::opaque},
    {"WebP", "lossless with alpha", "lossless.webp", Blocks::clear},
    {"WebP", "lossy", "lossy.webp", Blocks::opaque},
    {"WebP", "animated (the first frame)", "animated.webp", Blocks::clear},
    {"WebP", "profiles", "p3.webp", Blocks::p3},
    {"WebP", "profiles", "adobe.webp", Blocks::adobe},
    {"SVG", "with a size", "drawing.svg", Blocks::clear, drawn},
    {"SVG", "with a view box alone", "view_box.svg", Blocks::clear, drawn},
    {"SVG", "of 3 x 2 pixels", "tiny.svg", Blocks::clear, drawn},
    {"SVGZ", "with a size", "drawing.svgz", Blocks::clear, drawn},
    {"PDF", "the first page, transparent where nothing is drawn", "drawing.pdf", Blocks::clear,
     drawn},
    {"HEIC", "8 bits", "rgb.heic", Blocks::opaque, {96, 64}},
    {"HEIC", "profiles", "p3.heic", Blocks::p3, {96, 64}},
    {"AVIF", "with alpha", "rgba.avif", Blocks::clear},
    {"AVIF", "turned", "turned.avif", Blocks::opaque},
    {"AVIF", "profiles", "p3.avif", Blocks::p3},
    {"AVIF", "profiles", "adobe.avif", Blocks::adobe},
    {"JPEG XL", "with alpha", "rgba.jxl", Blocks::clear},
    {"JPEG XL", "in a container", "container.jxl", Blocks::opaque},
    {"JPEG XL", "grey", "grey.jxl", Blocks::grey},
    {"JPEG 2000", "file", "rgb.jp2", Blocks::opaque},
    {"JPEG 2000", "bare code stream", "rgb.j2k", Blocks::opaque},
    {"ICNS", "runs with a mask (the largest)", "runs.icns", Blocks::clear, {128, 128}},
    {"ICNS", "runs of colours and alpha", "argb.icns", Blocks::clear, {32, 32}},
    {"ICNS", "PNG (the largest)", "png.icns", Blocks::clear, {256, 256}},
    {"ICO", "bitmaps (the largest)", "bitmaps.ico", Blocks::clear, {48, 48}},
    {"ICO", "PNG (the largest)", "png.ico", Blocks::clear, {48, 48}},
    {"BMP", "24 bits", "rgb.bmp", Blocks::opaque},
    {"BMP", "with alpha", "rgba.bmp", Blocks::clear},
    {"BMP", "palette", "palette.bmp", Blocks::opaque},
    {"BMP", "run lengths", "rle.bmp", Blocks::opaque},
    {"BMP", "OS/2", "os2.bmp", Blocks::opaque},
    {"PSD", "flattened, with alpha", "rgba.psd", Blocks::binary},
    {"PSD", "flattened, run lengths", "rle.psd", Blocks::opaque},
    {"PSD", "grey", "grey.psd", Blocks::grey},
    {"TGA", "with alpha", "rgba.tga", Blocks::clear},
    {"TGA", "rows from the top", "top_down.tga", Blocks::clear},
    {"TGA", "run lengths", "rle.tga", Blocks::opaque},
    {"TGA", "grey", "grey.tga", Blocks::grey},
    {"TGA", "palette", "palette.tga", Blocks::opaque},
});

}  // namespace tessarine::testing
