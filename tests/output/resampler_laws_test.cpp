#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "output/resampler.h"
#include "tests/output/resampler_reference.h"

namespace tessarine {
namespace {

using testing::Colour;
using testing::drawnPicture;
using testing::noise;

Colour colourAt(const Bitmap& bitmap, std::int64_t x, std::int64_t y) {
  const auto pixel = bitmap.row(y).subspan(static_cast<std::size_t>(4 * x), 4);
  return {pixel[0], pixel[1], pixel[2], pixel[3]};
}

bool same(const Colour& a, const Colour& b) {
  return a.red == b.red && a.green == b.green && a.blue == b.blue && a.alpha == b.alpha;
}

Bitmap resized(const Picture& source, PixelSize size) {
  return resizedImage(source, size.width, size.height).value().bitmap.value();
}

Picture mirrored(const Bitmap& bitmap, bool across, bool down) {
  const PixelSize size = bitmap.size();
  return drawnPicture(size, [&](std::int64_t x, std::int64_t y) {
    return colourAt(bitmap, across ? size.width - 1 - x : x, down ? size.height - 1 - y : y);
  });
}

struct Scaling {
  PixelSize from;
  PixelSize to;
};

// Down, up, both, by whole factors, far, and over several tiles.
const std::vector<Scaling> scalings{
    {{50, 70}, {17, 23}},  {{50, 70}, {16, 24}},   {{31, 33}, {80, 90}},  {{31, 33}, {93, 66}},
    {{40, 9}, {11, 70}},   {{9, 40}, {70, 11}},    {{512, 512}, {9, 10}}, {{64, 64}, {8, 8}},
    {{33, 33}, {32, 34}},  {{1, 7}, {5, 3}},       {{7, 1}, {3, 5}},      {{2, 2}, {1, 1}},
    {{30, 4}, {4999, 3}},  {{6001, 4}, {1777, 9}}, {{1, 1}, {9, 9}},      {{3, 3}, {4, 2}},
    {{20, 20}, {20, 200}}, {{20, 20}, {7, 20}},    {{999, 640}, {20, 15}}};

TEST(ResamplerLaws, MirroredInGivesMirroredOut) {
  for (const auto& [from, to] : scalings) {
    SCOPED_TRACE(::testing::Message()
                 << from.width << "x" << from.height << " to " << to.width << "x" << to.height);
    const Picture source = drawnPicture(from, noise());
    const Bitmap plain = resized(source, to);
    for (const auto& [across, down] : {std::pair(true, false), {false, true}, {true, true}}) {
      const Bitmap turned = resized(mirrored(*source.bitmap, across, down), to);
      const Picture expected = mirrored(plain, across, down);
      EXPECT_TRUE(std::ranges::equal(turned.pixels(), expected.bitmap->pixels())) << across << down;
    }
  }
}

// From alpha 3 on; a fainter pixel may be one level off.
TEST(ResamplerLaws, OneColourStaysAsItIs) {
  const std::vector<Scaling> fewScalings{{{9, 7}, {4, 3}}, {{4, 3}, {9, 7}}, {{19, 18}, {3, 3}}};
  for (const auto& [from, to] : fewScalings) {
    for (int alpha = 1; alpha <= 255; ++alpha) {
      for (int level = 0; level <= 255; ++level) {
        const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
        const Colour colour{byte(level), byte(255 - level), byte(level * 7), byte(alpha)};
        const Picture source{from, testing::drawn(from, [&](auto, auto) { return colour; })};
        const Colour result = colourAt(resized(source, to), to.width / 2, to.height / 2);
        const int error = alpha < 3 ? 1 : 0;
        ASSERT_EQ(result.alpha, alpha);
        ASSERT_NEAR(result.red, colour.red, error) << alpha;
        ASSERT_NEAR(result.green, colour.green, error) << alpha;
        ASSERT_NEAR(result.blue, colour.blue, error) << alpha;
      }
    }
  }
}

TEST(ResamplerLaws, TheOwnSizeChangesNothingVisible) {
  for (const PixelSize size : {PixelSize{1, 1}, {64, 64}, {301, 17}, {1, 90}, {2500, 3}}) {
    const Picture source = drawnPicture(size, noise());
    const Bitmap result = resized(source, size);
    for (std::int64_t y = 0; y < size.height; ++y) {
      for (std::int64_t x = 0; x < size.width; ++x) {
        const Colour before = colourAt(*source.bitmap, x, y);
        ASSERT_TRUE(same(colourAt(result, x, y), before.alpha == 0 ? Colour{} : before));
      }
    }
  }
}

// The one axis that keeps its size mixes nothing: every row is scaled as if it stood alone.
TEST(ResamplerLaws, AnAxisOfItsOwnSizeIsLeftAlone) {
  const PixelSize size{60, 9};
  const Picture source = drawnPicture(size, noise());
  for (const std::int64_t width : {17, 60, 133}) {
    const Bitmap whole = resized(source, {width, size.height});
    for (std::int64_t y = 0; y < size.height; ++y) {
      const Picture row = drawnPicture(
          {size.width, 1}, [&](auto x, auto) { return colourAt(*source.bitmap, x, y); });
      EXPECT_TRUE(std::ranges::equal(resized(row, {width, 1}).row(0), whole.row(y))) << y;
    }
  }
}

TEST(ResamplerLaws, NoColourComesFromTransparentPixels) {
  const auto half = [](Colour hidden) {
    return [hidden](auto x, auto) { return x < 20 ? Colour{0, 255, 0, 255} : hidden; };
  };
  for (const PixelSize to : {PixelSize{13, 7}, {90, 55}, {40, 7}, {17, 20}}) {
    const Bitmap clear = resized(drawnPicture({40, 20}, half({})), to);
    const Bitmap hiding = resized(drawnPicture({40, 20}, half({255, 0, 255, 0})), to);
    EXPECT_TRUE(std::ranges::equal(clear.pixels(), hiding.pixels()));
    for (std::int64_t x = 0; x < to.width; ++x) {
      const Colour colour = colourAt(clear, x, to.height / 2);
      if (colour.alpha == 0) continue;
      EXPECT_TRUE(same(colour, {0, 255, 0, colour.alpha})) << x;
    }
  }
}

TEST(ResamplerLaws, TransparentPixelsHaveNoColour) {
  for (const auto& [from, to] : scalings) {
    const Bitmap result = resized(drawnPicture(from, testing::disc(from)), to);
    for (std::size_t i = 0; i < result.pixels().size(); i += 4) {
      const auto pixel = result.pixels().subspan(i, 4);
      if (pixel[3] != 0) continue;
      ASSERT_TRUE(pixel[0] == 0 && pixel[1] == 0 && pixel[2] == 0) << i;
    }
  }
}

// The middle of a slope stays in the middle: nothing is shifted by a part of a pixel.
TEST(ResamplerLaws, ASlopeKeepsItsPlace) {
  const Picture source = drawnPicture({100, 3}, [](std::int64_t x, auto) {
    return Colour{static_cast<std::uint8_t>(2 * x), 0, 0, 255};
  });
  for (const std::int64_t width : {25, 50, 75, 200, 300, 1000}) {
    const Bitmap result = resized(source, {width, 3});
    for (std::int64_t x = width / 10; x < width * 9 / 10; ++x) {
      const double place = (static_cast<double>(x) + 0.5) * 100 / static_cast<double>(width) - 0.5;
      ASSERT_NEAR(colourAt(result, x, 1).red, 2 * place, 0.6) << width << ": " << x;
    }
  }
}

TEST(ResamplerLaws, EverySourcePixelCounts) {
  for (const std::int64_t lit : {0, 1, 499, 500, 998, 999}) {
    const Picture source = drawnPicture({1000, 1}, [&](auto x, auto) {
      return x == lit ? Colour{255, 255, 255, 255} : Colour{0, 0, 0, 255};
    });
    const Bitmap result = resized(source, {40, 1});
    int sum = 0;
    for (std::int64_t x = 0; x < 40; ++x) sum += colourAt(result, x, 0).red;
    EXPECT_GE(sum, 5) << lit;
  }
}

}  // namespace
}  // namespace tessarine
