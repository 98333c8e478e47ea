#include "output/resampler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "tests/output/resampler_reference.h"

namespace tessarine {
namespace {

using testing::Colour;
using testing::drawnPicture;

constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();

TEST(Resampler, GivesOneBitmapOfThePointsAsked) {
  const auto result = resizedImage(drawnPicture({1024, 1024}, testing::noise()), 167, 167);
  ASSERT_TRUE(result && result->bitmap);
  EXPECT_EQ(result->points, (PixelSize{167, 167}));
  EXPECT_EQ(result->bitmap->size(), (PixelSize{167, 167}));
}

TEST(Resampler, SqueezesTheWholeSource) {
  // Four quarters of a wide picture are four quarters of the square.
  const Picture source = drawnPicture({1000, 500}, [](auto x, auto y) {
    return Colour{static_cast<std::uint8_t>(x < 500 ? 0 : 255),
                  static_cast<std::uint8_t>(y < 250 ? 0 : 255), 9, 255};
  });
  const auto result = resizedImage(source, 120, 120);
  ASSERT_TRUE(result && result->bitmap);
  ASSERT_EQ(result->bitmap->size(), (PixelSize{120, 120}));
  for (const std::int64_t y : {0, 30, 55, 64, 90, 119}) {
    for (const std::int64_t x : {0, 30, 55, 64, 90, 119}) {
      const auto pixel = result->bitmap->row(y).subspan(static_cast<std::size_t>(4 * x), 4);
      EXPECT_EQ(pixel[0], x < 60 ? 0 : 255) << x << ", " << y;
      EXPECT_EQ(pixel[1], y < 60 ? 0 : 255) << x << ", " << y;
      EXPECT_EQ(pixel[3], 255) << x << ", " << y;
    }
  }
}

TEST(Resampler, KeepsTransparency) {
  const Picture source = drawnPicture({90, 90}, [](auto x, auto) {
    return x < 30 ? Colour{} : x < 60 ? Colour{200, 100, 50, 128} : Colour{1, 2, 3, 255};
  });
  const auto result = resizedImage(source, 30, 60);
  ASSERT_TRUE(result && result->bitmap);
  EXPECT_EQ(result->bitmap->row(30)[4 * 4 + 3], 0);
  EXPECT_EQ(result->bitmap->row(30)[4 * 15 + 3], 128);
  EXPECT_EQ(result->bitmap->row(30)[4 * 15], 200);
  EXPECT_EQ(result->bitmap->row(30)[4 * 25 + 3], 255);
}

TEST(Resampler, GivesAClearBitmapForASourceWithoutOne) {
  const auto result = resizedImage(Picture{{20, 20}, std::nullopt}, 33, 12);
  ASSERT_TRUE(result && result->bitmap);
  EXPECT_EQ(result->bitmap->size(), (PixelSize{33, 12}));
  EXPECT_TRUE(std::ranges::all_of(result->bitmap->pixels(), [](auto byte) { return byte == 0; }));
}

struct Impossible {
  const char* name;
  PixelSize size;
};

class ResamplerWithoutBitmap : public ::testing::TestWithParam<Impossible> {};

TEST_P(ResamplerWithoutBitmap, KeepsTheSizeAlone) {
  const PixelSize size = GetParam().size;
  for (const Picture& source :
       {drawnPicture({5, 5}, testing::noise()), Picture{{5, 5}, std::nullopt}}) {
    const auto result = resizedImage(source, size.width, size.height);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->points, size);
    EXPECT_FALSE(result->bitmap);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, ResamplerWithoutBitmap,
    ::testing::Values(Impossible{"Nothing", {0, 0}}, Impossible{"NoWidth", {0, 10}},
                      Impossible{"NoHeight", {10, 0}}, Impossible{"NegativeWidth", {-5, 10}},
                      Impossible{"NegativeHeight", {10, -5}}, Impossible{"Negative", {-5, -5}},
                      Impossible{"OnePixelTooMany", {maximumPixels + 1, 1}},
                      Impossible{"OneRowTooMany", {16383, 16384}},
                      Impossible{"Largest32Bit", {2147483647, 2147483647}},
                      Impossible{"Smallest32Bit", {-2147483648, -2147483648}},
                      Impossible{"Largest64Bit", {most, most}},
                      Impossible{"LargestWidth", {most, 1}}, Impossible{"LargestHeight", {1, most}},
                      Impossible{"Smallest64Bit", {least, least}},
                      Impossible{"SmallestWidth", {least, 7}}),
    [](const auto& row) { return std::string(row.param.name); });

struct Extreme {
  const char* name;
  PixelSize from;
  PixelSize to;
};

class ResamplerExtremes : public ::testing::TestWithParam<Extreme> {};

// Black on the left and top, white on the right and bottom, however far the scaling goes.
TEST_P(ResamplerExtremes, KeepEverythingInItsPlace) {
  const PixelSize from = GetParam().from;
  const PixelSize to = GetParam().to;
  const Picture source = drawnPicture(from, [&](auto x, auto y) {
    return Colour{static_cast<std::uint8_t>(2 * x < from.width ? 0 : 255),
                  static_cast<std::uint8_t>(2 * y < from.height ? 0 : 255), 40, 255};
  });
  const auto result = resizedImage(source, to.width, to.height);
  ASSERT_TRUE(result && result->bitmap);
  ASSERT_EQ(result->bitmap->size(), to);
  const auto first = result->bitmap->row(0).first(4);
  const auto last = result->bitmap->row(to.height - 1).last(4);
  if (to.width > 1 && from.width > 1) {
    EXPECT_LT(first[0] + 200, last[0]);
  }
  if (to.height > 1 && from.height > 1) {
    EXPECT_LT(first[1] + 200, last[1]);
  }
  if (to == PixelSize{1, 1} && from.width > 1) {
    EXPECT_NEAR(first[0], 127.5, 1);
  }
  if (to == PixelSize{1, 1} && from.height > 1) {
    EXPECT_NEAR(first[1], 127.5, 1);
  }
  for (const auto& pixel : {first, last}) {
    EXPECT_EQ(pixel[2], 40);
    EXPECT_EQ(pixel[3], 255);
  }
}

INSTANTIATE_TEST_SUITE_P(Scalings, ResamplerExtremes,
                         ::testing::Values(Extreme{"LongRow", {300'000, 1}, {16, 16}},
                                           Extreme{"LongColumn", {1, 300'000}, {16, 16}},
                                           Extreme{"RowToAPixel", {1'000'000, 1}, {1, 1}},
                                           Extreme{"ColumnToAPixel", {1, 1'000'000}, {1, 1}},
                                           Extreme{"SquareToAPixel", {1200, 1200}, {1, 1}},
                                           Extreme{"PixelToARow", {1, 1}, {300'000, 1}},
                                           Extreme{"PixelsToALongRow", {2, 2}, {300'000, 2}},
                                           Extreme{"PixelsToALongColumn", {2, 2}, {2, 300'000}},
                                           Extreme{"RowToAColumn", {70'000, 2}, {2, 70'000}},
                                           Extreme{"ColumnToARow", {2, 70'000}, {70'000, 2}}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tessarine
