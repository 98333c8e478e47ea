#include "iconsets/proofs.h"

#include <gtest/gtest.h>

#include <array>

#include "iconsets/windows10.h"

// The proofs hold the tables to account when they are compiled; here the proofs themselves are
// shown to fail.
namespace tessarine {
namespace {

using Files = std::array<IconSize, 2>;
using Entries = std::array<CatalogueEntry, 2>;

constexpr Files files{{{"a", {20, 20}}, {"b", {167, 167}}}};
constexpr CatalogueEntry a{.filename = "a.png", .scale = "2x", .size = "10x10"};
constexpr CatalogueEntry b{.filename = "b.png", .scale = "2x", .size = "83.5x83.5"};

TEST(Proofs, AcceptATableThatItsCatalogueMatches) {
  EXPECT_TRUE(everyFileNamedOnceAtItsSize(files, Entries{{b, a}}));
}

TEST(Proofs, RejectAFileNamedTwiceOrNever) {
  EXPECT_FALSE(everyFileNamedOnceAtItsSize(files, Entries{{a, a}}));
  EXPECT_FALSE(everyFileNamedOnceAtItsSize(files, std::array<CatalogueEntry, 1>{{a}}));
}

TEST(Proofs, RejectAnotherExtension) {
  CatalogueEntry jpeg = a;
  jpeg.filename = "a.jpg";
  EXPECT_FALSE(everyFileNamedOnceAtItsSize(files, Entries{{jpeg, b}}));
}

struct SizeCase {
  const char* name;
  const char* scale;
  const char* size;
};

class WrongSizes : public ::testing::TestWithParam<SizeCase> {};

TEST_P(WrongSizes, AreRejected) {
  EXPECT_FALSE(hasPixels({.scale = GetParam().scale, .size = GetParam().size}, {20, 20}));
}

INSTANTIATE_TEST_SUITE_P(
    Entries, WrongSizes,
    ::testing::Values(SizeCase{"scale", "3x", "10x10"}, SizeCase{"width", "2x", "11x10"},
                      SizeCase{"height", "2x", "10x11"}, SizeCase{"noCross", "2x", "10"},
                      SizeCase{"noScale", "", "10x10"}, SizeCase{"fraction", "2x", "10.5x10"},
                      SizeCase{"hundredths", "2x", "10.05x10"}, SizeCase{"letters", "2x", "axa"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Proofs, RejectANameThatStandsTwice) {
  EXPECT_TRUE(everyNameOnce(files));
  EXPECT_FALSE(everyNameOnce(Files{{{"a", {1, 1}}, {"a", {2, 2}}}}));
}

TEST(Proofs, RoundHalvesUpByTheScaleRule) {
  EXPECT_TRUE(detail::hasLabelledSize({"SmallTile.scale-150", {107, 107}}));
  EXPECT_FALSE(detail::hasLabelledSize({"SmallTile.scale-150", {106, 106}}));
  EXPECT_TRUE(detail::hasLabelledSize({"AppIcon.targetSize-24", {24, 24}}));
  EXPECT_FALSE(detail::hasLabelledSize({"AppIcon.targetSize-24", {25, 24}}));
  EXPECT_FALSE(detail::hasLabelledSize({"Unknown.scale-100", {1, 1}}));
}

}  // namespace
}  // namespace tessarine
