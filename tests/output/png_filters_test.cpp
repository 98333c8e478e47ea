#include "output/png_filters.h"

#include <gtest/gtest.h>
#include <hwy/highway.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <numeric>

#include "tests/output/drawn_bitmaps.h"
#include "tests/output/instruction_sets.h"

namespace tessarine {
namespace {

using testing::Colour;
using testing::drawn;
using testing::DrawnBitmap;
using testing::drawnBitmaps;
using Bytes = std::vector<std::uint8_t>;

// The file format's own definition, byte by byte.
int predicted(PNGFilter filter, int left, int above, int corner) {
  switch (filter) {
    case PNGFilter::none:
      return 0;
    case PNGFilter::sub:
      return left;
    case PNGFilter::up:
      return above;
    case PNGFilter::average:
      return (left + above) / 2;
    case PNGFilter::paeth:
      break;
  }
  const int estimate = left + above - corner;
  const int toLeft = std::abs(estimate - left);
  const int toAbove = std::abs(estimate - above);
  const int toCorner = std::abs(estimate - corner);
  if (toLeft <= toAbove && toLeft <= toCorner) return left;
  return toAbove <= toCorner ? above : corner;
}

Bytes filteredRow(const Bitmap& bitmap, std::int64_t y, PNGFilter filter) {
  const auto row = bitmap.row(y);
  const Bytes nothing(row.size(), 0);
  const std::span<const std::uint8_t> above = y > 0 ? bitmap.row(y - 1) : nothing;
  Bytes result(row.size());
  for (std::size_t i = 0; i < row.size(); ++i) {
    const int left = i < 4 ? 0 : row[i - 4];
    const int corner = i < 4 ? 0 : above[i - 4];
    result[i] = static_cast<std::uint8_t>(row[i] - predicted(filter, left, above[i], corner));
  }
  return result;
}

std::int64_t cost(const Bytes& row) {
  return std::accumulate(row.begin(), row.end(), std::int64_t{0},
                         [](std::int64_t sum, std::uint8_t byte) {
                           return sum + std::min(std::abs(static_cast<std::int8_t>(byte)), 32);
                         });
}

std::size_t zerosAfterTheTypes(const Bytes& rows, PixelSize size) {
  const std::size_t rowBytes = rows.size() / static_cast<std::size_t>(size.height);
  std::size_t zeros = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) zeros += i % rowBytes != 0 && rows[i] == 0 ? 1 : 0;
  return zeros;
}

Bytes filtered(const Bitmap& bitmap) {
  // Odd bytes around the result show a write beside it.
  Bytes memory(filteredByteCount(bitmap.size()) + 2, 0xa5);
  const std::size_t zeros = filterRows(bitmap, std::span(memory).subspan(1, memory.size() - 2));
  EXPECT_EQ(memory.front(), 0xa5);
  EXPECT_EQ(memory.back(), 0xa5);
  Bytes rows(memory.begin() + 1, memory.end() - 1);
  EXPECT_EQ(zeros, zerosAfterTheTypes(rows, bitmap.size()));
  return rows;
}

constexpr std::array allFilters{PNGFilter::none, PNGFilter::sub, PNGFilter::up, PNGFilter::average,
                                PNGFilter::paeth};

// The whole law, for one instruction set.
void expectLeastCosts(const Bitmap& bitmap) {
  const Bytes actual = filtered(bitmap);
  const std::size_t rowBytes = bitmap.row(0).size();
  for (std::int64_t y = 0; y < bitmap.size().height; ++y) {
    const auto* row = actual.data() + static_cast<std::size_t>(y) * (1 + rowBytes);
    ASSERT_LE(row[0], 4) << "row " << y;
    const auto chosen = static_cast<PNGFilter>(row[0]);
    const Bytes expected = filteredRow(bitmap, y, chosen);
    ASSERT_TRUE(std::equal(expected.begin(), expected.end(), row + 1)) << "row " << y;
    for (const PNGFilter other : allFilters) {
      const std::int64_t otherCost = cost(filteredRow(bitmap, y, other));
      if (other < chosen) {
        EXPECT_LT(cost(expected), otherCost) << "row " << y;
      } else {
        EXPECT_LE(cost(expected), otherCost) << "row " << y;
      }
    }
  }
}

class PNGFiltersOn : public ::testing::TestWithParam<std::int64_t> {
 protected:
  void SetUp() override {
    if ((hwy::SupportedTargets() & GetParam()) == 0) GTEST_SKIP() << "not on this processor";
    hwy::SetSupportedTargetsForTest(GetParam());
  }
  void TearDown() override { hwy::SetSupportedTargetsForTest(0); }
};

TEST_P(PNGFiltersOn, ChooseTheLeastCostInEveryRow) {
  for (const DrawnBitmap& drawing : drawnBitmaps()) {
    SCOPED_TRACE(drawing.name);
    expectLeastCosts(drawing.bitmap);
  }
}

INSTANTIATE_TEST_SUITE_P(InstructionSets, PNGFiltersOn,
                         ::testing::ValuesIn(testing::instructionSets()),
                         [](const auto& row) { return hwy::TargetName(row.param); });

PNGFilter filterOfLastRow(const Bitmap& bitmap) {
  const Bytes rows = filtered(bitmap);
  return static_cast<PNGFilter>(rows[rows.size() - 1 - bitmap.row(0).size()]);
}

std::uint8_t byte(std::int64_t value) {
  return static_cast<std::uint8_t>(value);
}

// Every other pixel far from its neighbours, but small as a signed byte.
TEST(PNGFilters, LeaveSmallAlternatingValuesAlone) {
  const Bitmap bitmap = drawn({40, 2}, [](auto x, auto y) {
    const auto value = byte((x + y) % 2 == 0 ? 3 : -3);
    return Colour{value, value, value, value};
  });
  EXPECT_EQ(filterOfLastRow(bitmap), PNGFilter::none);
}

TEST(PNGFilters, TellARowOfOneColourByItsLeft) {
  const Bitmap bitmap = drawn({40, 2}, [](auto x, auto y) {
    return y == 0 ? Colour{byte(70 * x), byte(110 * x), byte(90 * x), byte(50 * x)}
                  : Colour{90, 100, 110, 120};
  });
  EXPECT_EQ(filterOfLastRow(bitmap), PNGFilter::sub);
}

TEST(PNGFilters, TellAnUnquietRowByTheQuietOneAbove) {
  const Bitmap bitmap = drawn({40, 2}, [](auto x, auto y) {
    const auto value = byte(100 + (y == 0 ? 0 : x % 2 == 0 ? 2 : -2));
    return Colour{value, value, value, value};
  });
  EXPECT_EQ(filterOfLastRow(bitmap), PNGFilter::up);
}

TEST(PNGFilters, TellAMeanOfItsNeighboursByTheirAverage) {
  std::vector<int> row(40, 0);
  const Bitmap bitmap = drawn({40, 2}, [&](auto x, auto y) {
    const auto i = static_cast<std::size_t>(x);
    if (y == 0) {
      row[i] = static_cast<int>(x * 97 % 251);
    } else {
      row[i] = (row[i] + (x > 0 ? row[i - 1] : 0)) / 2;
    }
    const auto value = byte(row[i]);
    return Colour{value, value, value, value};
  });
  EXPECT_EQ(filterOfLastRow(bitmap), PNGFilter::average);
}

TEST(PNGFilters, TellAnEdgeThatTurnsByItsNearestNeighbour) {
  const Bitmap bitmap = drawn({40, 2}, [](auto x, auto y) {
    const auto value = byte((x < 20 ? 10 : 30) + (x < 30 && y > 0 ? 12 : 0));
    return Colour{value, value, value, value};
  });
  EXPECT_EQ(filterOfLastRow(bitmap), PNGFilter::paeth);
}

TEST(PNGFilters, AreTheSameOnEveryRun) {
  for (const DrawnBitmap& drawing : drawnBitmaps()) {
    EXPECT_EQ(filtered(drawing.bitmap), filtered(drawing.bitmap)) << drawing.name;
  }
}

}  // namespace
}  // namespace tessarine
