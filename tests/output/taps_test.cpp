#include "output/taps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace tessarine {
namespace {

struct WeightsOfPixel {
  Taps taps;
  std::vector<std::int16_t> weights;
};

WeightsOfPixel weightsOf(Axis& axis, std::int64_t index) {
  std::vector<std::int16_t> weights(axis.maximumTaps());
  const Taps taps = axis.taps(index, weights.data());
  EXPECT_LE(taps.count, weights.size());
  weights.resize(taps.count);
  return {taps, weights};
}

// The weight of each source pixel, those of 0 too.
std::vector<int> byPixel(Axis& axis, std::int64_t index) {
  std::vector<int> all(static_cast<std::size_t>(axis.source()) + 1, 0);
  const auto [taps, weights] = weightsOf(axis, index);
  for (std::size_t i = 0; i < weights.size(); ++i) {
    all[static_cast<std::size_t>(taps.first) + i] += weights[i];
  }
  EXPECT_EQ(all.back(), 0) << "a pixel beyond the edge";
  all.pop_back();
  return all;
}

const std::vector<std::pair<std::int64_t, std::int64_t>> sides{
    {100, 37}, {100, 50}, {37, 100}, {64, 64}, {1, 9},    {9, 1},     {2, 3},    {3, 2},
    {7, 5},    {333, 20}, {1000, 4}, {5, 500}, {256, 16}, {4096, 16}, {101, 33}, {33, 101}};

TEST(Taps, AddUpExactly) {
  for (const auto& [source, target] : sides) {
    Axis axis(source, target);
    for (std::int64_t i = 0; i < target; ++i) {
      const auto weights = weightsOf(axis, i).weights;
      EXPECT_EQ(std::accumulate(weights.begin(), weights.end(), 0), weightSum)
          << source << " to " << target << ": " << i;
    }
  }
}

TEST(Taps, BeginAtEvenPixelsAndComeInPairs) {
  for (const auto& [source, target] : sides) {
    Axis axis(source, target);
    for (std::int64_t i = 0; i < target; ++i) {
      const Taps taps = weightsOf(axis, i).taps;
      EXPECT_EQ(taps.first % 2, 0);
      EXPECT_EQ(taps.count % 2, 0u);
      EXPECT_GE(taps.first, 0);
      EXPECT_LE(taps.first + static_cast<std::int64_t>(taps.count), source + source % 2);
    }
  }
}

TEST(Taps, AreMirroredExactly) {
  for (const auto& [source, target] : sides) {
    Axis axis(source, target);
    for (std::int64_t i = 0; i < target; ++i) {
      auto opposite = byPixel(axis, target - 1 - i);
      std::reverse(opposite.begin(), opposite.end());
      EXPECT_EQ(byPixel(axis, i), opposite) << source << " to " << target << ": " << i;
    }
  }
}

// Sides whose product no double holds.
TEST(Taps, AddUpAndAreMirroredInTheMiddleOfTheLongestAxes) {
  constexpr std::pair<std::int64_t, std::int64_t> longSides[] = {
      {120'659'339, 126'767'367}, {33'558'603, 268'402'689}, {134'217'719, 134'217'721}};
  for (const auto& [source, target] : longSides) {
    Axis axis(source, target);
    const auto [taps, weights] = weightsOf(axis, target / 2);
    EXPECT_EQ(std::accumulate(weights.begin(), weights.end(), 0), weightSum)
        << source << " to " << target;
    for (std::size_t i = 0; i < weights.size(); ++i) {
      const std::int64_t opposite = source - 1 - 2 * taps.first - static_cast<std::int64_t>(i);
      const bool isInside = opposite >= 0 && opposite < static_cast<std::int64_t>(weights.size());
      EXPECT_EQ(weights[i], isInside ? weights[static_cast<std::size_t>(opposite)] : 0)
          << source << " to " << target << ": " << i;
    }
  }
}

TEST(Taps, TakeThePixelItselfAtItsOwnSize) {
  Axis axis(64, 64);
  for (std::int64_t i = 0; i < 64; ++i) {
    std::vector<int> expected(64, 0);
    expected[static_cast<std::size_t>(i)] = weightSum;
    EXPECT_EQ(byPixel(axis, i), expected) << i;
  }
}

// Keys' cubic at 5/3, 2/3, 1/3 and 4/3 of a pixel: -2/54, 18/54, 42/54 and -4/54.
TEST(Taps, AreThoseOfCatmullRom) {
  Axis axis(20, 60);
  const auto weights = byPixel(axis, 30);
  const double part = weightSum / 54.0;
  EXPECT_NEAR(weights[8], -2 * part, 1);
  EXPECT_NEAR(weights[9], 18 * part, 1);
  EXPECT_NEAR(weights[10], 42 * part, 1);
  EXPECT_NEAR(weights[11], -4 * part, 1);
}

TEST(Taps, LeaveNoSourcePixelOut) {
  for (const auto& [source, target] : sides) {
    if (source < target) continue;
    Axis axis(source, target);
    std::vector<int> sums(static_cast<std::size_t>(source), 0);
    for (std::int64_t i = 0; i < target; ++i) {
      const auto weights = byPixel(axis, i);
      for (std::size_t k = 0; k < sums.size(); ++k) sums[k] += weights[k];
    }
    for (const int sum : sums) {
      EXPECT_GT(sum, weightSum * target / source / 4) << source << " to " << target;
    }
  }
}

}  // namespace
}  // namespace tessarine
