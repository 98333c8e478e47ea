#include <gtest/gtest.h>
#include <hwy/highway.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <tuple>

#include "output/resampler.h"
#include "tests/output/instruction_sets.h"
#include "tests/output/resampler_reference.h"

namespace tessarine {
namespace {

using testing::Paint;

struct Scaling {
  const char* name;
  PixelSize from;
  PixelSize to;
  // Squares of a large picture become one pixel first, which white noise shows.
  bool photographic = false;
};

// Few enough pixels for the double precision, many enough for a mean.
constexpr Scaling scalings[] = {
    {"Shrink", {100, 100}, {37, 61}},
    {"ShrinkByWhole", {128, 128}, {32, 32}},
    {"ShrinkALittle", {120, 120}, {119, 113}},
    {"ShrinkMuch", {700, 700}, {32, 29}},
    {"ShrinkVeryMuch", {1024, 1024}, {16, 16}},
    {"ShrinkOddSides", {333, 777}, {20, 11}},
    {"Squeeze", {400, 200}, {48, 48}},
    {"Enlarge", {60, 64}, {130, 97}},
    {"EnlargeByWhole", {32, 32}, {128, 128}},
    {"EnlargeMuch", {16, 16}, {250, 310}},
    {"WidenAndFlatten", {33, 77}, {120, 20}},
    {"NarrowAndRaise", {77, 33}, {20, 120}},
    {"WidthOnly", {90, 60}, {31, 60}},
    {"HeightOnly", {60, 90}, {60, 31}},
    {"SeveralTiles", {40, 6}, {5000, 3}},
    {"SeveralSourceTiles", {5000, 6}, {1200, 9}},
    {"Row", {600, 1}, {170, 40}},
    {"Column", {1, 600}, {40, 170}},
    {"LargeByTwo", {2304, 2048}, {72, 64}, true},
    {"LargeToOddHalf", {2306, 2050}, {72, 64}, true},
    {"LargeToSmall", {2304, 2048}, {30, 29}, true},
};

struct Kind {
  const char* name;
  Paint (*paint)(PixelSize);
};

constexpr Kind kinds[] = {
    {"Noise", [](PixelSize) { return testing::noise(); }},
    {"OpaqueNoise", [](PixelSize) { return testing::opaqueNoise(); }},
    {"Disc", testing::disc},
    {"Photograph", [](PixelSize) { return testing::photograph(); }},
};

class ResamplerOn : public ::testing::TestWithParam<std::tuple<std::int64_t, Scaling>> {
 protected:
  void SetUp() override {
    const std::int64_t set = std::get<0>(GetParam());
    if ((hwy::SupportedTargets() & set) == 0) GTEST_SKIP() << "not on this processor";
    hwy::SetSupportedTargetsForTest(set);
  }
  void TearDown() override { hwy::SetSupportedTargetsForTest(0); }
};

// 60 dB are a difference of one level in every 15th value.
TEST_P(ResamplerOn, IsNearTheDefinition) {
  const Scaling& scaling = std::get<1>(GetParam());
  for (const Kind& kind : kinds) {
    if (scaling.photographic && std::string_view(kind.name) != "Photograph") continue;
    const Picture source = testing::drawnPicture(scaling.from, kind.paint(scaling.from));
    const auto result = resizedImage(source, scaling.to.width, scaling.to.height);
    ASSERT_TRUE(result && result->bitmap);
    const auto reference = testing::referencePixels(*source.bitmap, scaling.to);
    EXPECT_GE(testing::decibels(*result->bitmap, reference), 60) << kind.name;
  }
}

// The outermost pixels stand for all beyond them: no mean of many may take their place.
TEST(Resampler, KeepsTheEdgesOfLargePictures) {
  const PixelSize size{2304, 2048};
  const Picture source = testing::drawnPicture(size, [&](std::int64_t x, std::int64_t y) {
    const auto inside = std::min({x, y, size.width - 1 - x, size.height - 1 - y});
    const auto level = static_cast<std::uint8_t>(inside < 6 ? 128 + 4 * inside : 152);
    return testing::Colour{level, level, level, 255};
  });
  const auto result = resizedImage(source, 16, 16);
  ASSERT_TRUE(result && result->bitmap);
  EXPECT_GE(testing::decibels(*result->bitmap, testing::referencePixels(*source.bitmap, {16, 16})),
            60);
}

// A picture does not depend on the machine that made it.
TEST_P(ResamplerOn, GivesTheSameBytesAsEveryOther) {
  const Scaling& scaling = std::get<1>(GetParam());
  const Picture source = testing::drawnPicture(scaling.from, testing::noise());
  const auto here = resizedImage(source, scaling.to.width, scaling.to.height);
  hwy::SetSupportedTargetsForTest(0);
  const auto best = resizedImage(source, scaling.to.width, scaling.to.height);
  ASSERT_TRUE(here && here->bitmap && best && best->bitmap);
  EXPECT_TRUE(std::ranges::equal(here->bitmap->pixels(), best->bitmap->pixels()));
}

INSTANTIATE_TEST_SUITE_P(InstructionSets, ResamplerOn,
                         ::testing::Combine(::testing::ValuesIn(testing::instructionSets()),
                                            ::testing::ValuesIn(scalings)),
                         [](const auto& row) {
                           return std::string(hwy::TargetName(std::get<0>(row.param))) + "_" +
                                  std::get<1>(row.param).name;
                         });

}  // namespace
}  // namespace tessarine
