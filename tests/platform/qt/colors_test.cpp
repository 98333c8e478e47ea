#include "platform/qt/colors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "platform/qt/tuned_palette.h"

namespace tessarine {
namespace {

double luminance(const QColor& color) {
  const auto linear = [](double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

// As accessibility guidelines measure it: from 1 to 21.
double contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

class Contrast : public ::testing::TestWithParam<bool> {
 protected:
  const QPalette palette = GetParam() ? darkPalette() : lightPalette();
  QColor color(QPalette::ColorRole role) const { return palette.color(role); }
};

TEST_P(Contrast, OfTextsIsEasyToRead) {
  constexpr double readable = 4.5;
  EXPECT_GE(contrast(color(QPalette::WindowText), color(QPalette::Window)), readable);
  EXPECT_GE(contrast(color(QPalette::Text), color(QPalette::Base)), readable);
  EXPECT_GE(contrast(color(QPalette::ButtonText), color(QPalette::Button)), readable);
  EXPECT_GE(contrast(color(QPalette::PlaceholderText), color(QPalette::Base)), readable);
  EXPECT_GE(contrast(color(QPalette::ToolTipText), color(QPalette::ToolTipBase)), readable);
  EXPECT_GE(contrast(color(QPalette::Link), color(QPalette::Window)), readable);
  EXPECT_GE(contrast(secondaryText(palette), color(QPalette::Window)), readable);
  EXPECT_GE(contrast(secondaryText(palette), color(QPalette::Base)), readable);
}

TEST_P(Contrast, OfTextOnTheAccentIsEasyToRead) {
  EXPECT_GE(contrast(color(QPalette::HighlightedText), accentColor(palette)), 4.5);
}

TEST_P(Contrast, OfFramesIsEasyToSee) {
  constexpr double visible = 3.0;
  for (const FrameColor frame : {FrameColor::accent, FrameColor::lightGray}) {
    EXPECT_GE(contrast(frameColor(frame, palette), color(QPalette::Window)), visible);
    EXPECT_GE(contrast(frameColor(frame, palette), color(QPalette::Base)), visible);
  }
  EXPECT_EQ(frameColor(FrameColor::clear, palette).alpha(), 0);
}

TEST_P(Contrast, TellsLightFromDark) {
  EXPECT_EQ(isDark(palette), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Palettes, Contrast, ::testing::Bool(),
                         [](const auto& row) { return row.param ? "Dark" : "Light"; });

TEST(Blend, GoesFromTheOneToTheOther) {
  EXPECT_EQ(blend(Qt::black, Qt::white, 0.0), QColor(Qt::black));
  EXPECT_EQ(blend(Qt::black, Qt::white, 1.0), QColor(Qt::white));
  EXPECT_EQ(blend(Qt::black, Qt::white, 0.5).lightness(), 128);
}

}  // namespace
}  // namespace tessarine
