#include "platform/vips/held_tiff.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tiffio.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/vips/vips_pictures.h"
#include "tests/platform/vips/drawn_pictures.h"

namespace tessarine {
namespace {

using testing::drawVaried;
using ::testing::ElementsAreArray;

class HeldTIFFOfSize : public ::testing::TestWithParam<PixelSize> {};

TEST_P(HeldTIFFOfSize, GivesTheSamePictureBack) {
  VipsPictures pictures;
  const Bitmap bitmap = drawVaried(GetParam());

  const auto held = pictures.tiffRepresentation({GetParam(), bitmap});
  ASSERT_TRUE(held);
  const auto picture = pictures.decode(*held);

  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->points, GetParam());
  ASSERT_TRUE(picture->bitmap);
  EXPECT_EQ(picture->bitmap->size(), GetParam());
  EXPECT_THAT(picture->bitmap->pixels(), ElementsAreArray(bitmap.pixels()));
}

INSTANTIATE_TEST_SUITE_P(Sizes, HeldTIFFOfSize,
                         ::testing::Values(PixelSize{1, 1}, PixelSize{1, 70}, PixelSize{70, 1},
                                           PixelSize{3, 5}, PixelSize{255, 257},
                                           PixelSize{70000, 2}),
                         [](const auto& row) {
                           return std::to_string(row.param.width) + "x" +
                                  std::to_string(row.param.height);
                         });

TEST(HeldTIFF, IsViewedAndNotCopied) {
  const auto held = writeHeldTIFF(drawVaried({9, 4}));
  ASSERT_TRUE(held);
  const auto bitmap = viewHeldTIFF(*held);
  ASSERT_TRUE(bitmap);
  const auto whole = held->bytes();
  EXPECT_GE(bitmap->pixels().data(), whole.data());
  EXPECT_LE(bitmap->pixels().data() + bitmap->pixels().size(), whole.data() + whole.size());
}

TEST(HeldTIFF, KeepsItsBytesAliveInTheBitmap) {
  auto held = writeHeldTIFF(drawVaried({9, 4}));
  const auto bitmap = viewHeldTIFF(required(held));
  held.reset();
  EXPECT_THAT(required(bitmap).pixels(), ElementsAreArray(drawVaried({9, 4}).pixels()));
}

TEST(HeldTIFF, DoesNotExistForAPictureWithoutABitmap) {
  VipsPictures pictures;
  EXPECT_FALSE(pictures.tiffRepresentation({{10, 10}, std::nullopt}));
}

// Read back by libtiff alone, as another program that takes the picture off a pasteboard would.
TEST(HeldTIFF, IsWhatItsTagsSay) {
  const PixelSize size{6, 4};
  const auto held = required(writeHeldTIFF(drawVaried(size)));
  const auto path = std::filesystem::path(::testing::TempDir()) / "held.tiff";
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(held.bytes().data()),
             static_cast<std::streamsize>(held.bytes().size()));

  TIFF* tiff = TIFFOpen(path.c_str(), "r");
  ASSERT_NE(tiff, nullptr);
  const auto number = [tiff](std::uint32_t tag) {
    std::uint16_t value = 0;
    EXPECT_EQ(TIFFGetField(tiff, tag, &value), 1) << tag;
    return value;
  };
  EXPECT_EQ(number(TIFFTAG_COMPRESSION), COMPRESSION_NONE);
  EXPECT_EQ(number(TIFFTAG_PHOTOMETRIC), PHOTOMETRIC_RGB);
  EXPECT_EQ(number(TIFFTAG_BITSPERSAMPLE), 8);
  EXPECT_EQ(number(TIFFTAG_SAMPLESPERPIXEL), 4);
  EXPECT_EQ(number(TIFFTAG_PLANARCONFIG), PLANARCONFIG_CONTIG);
  EXPECT_EQ(number(TIFFTAG_ORIENTATION), ORIENTATION_TOPLEFT);
  EXPECT_EQ(number(TIFFTAG_RESOLUTIONUNIT), RESUNIT_INCH);
  std::uint16_t extraCount = 0;
  std::uint16_t* extra = nullptr;
  EXPECT_EQ(TIFFGetField(tiff, TIFFTAG_EXTRASAMPLES, &extraCount, &extra), 1);
  ASSERT_EQ(extraCount, 1);
  EXPECT_EQ(*extra, EXTRASAMPLE_UNASSALPHA);
  float pixelsPerInch = 0;
  EXPECT_EQ(TIFFGetField(tiff, TIFFTAG_XRESOLUTION, &pixelsPerInch), 1);
  EXPECT_EQ(pixelsPerInch, 72.0F);
  EXPECT_EQ(TIFFNumberOfStrips(tiff), 1U);
  std::vector<std::uint8_t> pixels(required(Bitmap::byteCount(size)));
  EXPECT_EQ(TIFFReadEncodedStrip(tiff, 0, pixels.data(), static_cast<tmsize_t>(pixels.size())),
            static_cast<tmsize_t>(pixels.size()));
  EXPECT_EQ(TIFFReadDirectory(tiff), 0);
  TIFFClose(tiff);
  EXPECT_THAT(pixels, ElementsAreArray(drawVaried(size).pixels()));
}

}  // namespace
}  // namespace tessarine
