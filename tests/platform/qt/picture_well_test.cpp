#include "platform/qt/picture_well.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QSignalSpy>
#include <cstdlib>

#include "tests/support/recording_platform.h"

namespace tessarine {
namespace {

using testing::plainPicture;

// A widget painted as on a screen with that many pixels to a point.
QImage painted(QWidget& widget, double ratio = 1.0) {
  QImage image(widget.size() * ratio, QImage::Format_ARGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::transparent);
  widget.render(&image);
  return image;
}

int count(const QImage& image, const QColor& color) {
  int pixels = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) pixels += image.pixelColor(x, y) == color ? 1 : 0;
  }
  return pixels;
}

class PictureWellTest : public ::testing::Test {
 protected:
  PictureWellTest() {
    well_.resize(336, 336);
    well_.setScaler([this](const Picture&, std::int64_t width, std::int64_t height) {
      sizes_.push_back({width, height});
      return std::optional(plainPicture({width, height}, {200, 10, 20, 255}));
    });
  }

  static constexpr QColor red{200, 10, 20};
  PictureWell well_;
  std::vector<PixelSize> sizes_;
};

TEST_F(PictureWellTest, ShowsASmallPictureAtItsSize) {
  well_.setImage(plainPicture({50, 20}));
  EXPECT_EQ(count(painted(well_), red), 50 * 20);
  EXPECT_EQ(sizes_, (std::vector<PixelSize>{{50, 20}}));
}

TEST_F(PictureWellTest, ShowsTheWholeOfALargePictureInItsShape) {
  well_.setImage(plainPicture({1200, 400}));
  EXPECT_EQ(count(painted(well_), red), 300 * 100);
  EXPECT_EQ(sizes_, (std::vector<PixelSize>{{300, 100}}));
}

// In a process of its own, whose screen has such pixels.
TEST_F(PictureWellTest, ShowsEachPixelOnAScreenOfTwoToAPoint) {
  qputenv("QT_SCALE_FACTOR", "2");
  const auto isSharp = [this] {
    well_.setImage(plainPicture({1200, 402}));
    return count(painted(well_, 2.0), red) == 600 * 201 &&
           sizes_ == std::vector<PixelSize>{{600, 201}};
  };
  EXPECT_EXIT(std::exit(isSharp() ? 0 : 1), ::testing::ExitedWithCode(0), "");
  qunsetenv("QT_SCALE_FACTOR");
}

TEST_F(PictureWellTest, KeepsAPixelOfTheThinnestPicture) {
  well_.setImage(plainPicture({2000, 1}));
  EXPECT_EQ(count(painted(well_), red), 300);
}

TEST_F(PictureWellTest, ScalesAHugePictureFromASmallerOneAfterTheFirstTime) {
  well_.setImage(plainPicture({8192, 2048}));
  EXPECT_EQ(sizes_, (std::vector<PixelSize>{{4096, 1024}}));
  painted(well_);
  EXPECT_EQ(sizes_.back(), (PixelSize{300, 75}));
  EXPECT_EQ(well_.accessibleDescription(), "8192 × 2048 pixels");
}

TEST_F(PictureWellTest, ScalesAnewOnlyForAnotherSize) {
  well_.setImage(plainPicture({1200, 1200}));
  painted(well_);
  painted(well_);
  EXPECT_EQ(sizes_.size(), 1U);
  well_.resize(436, 436);
  painted(well_);
  EXPECT_EQ(sizes_.back(), (PixelSize{400, 400}));
}

TEST_F(PictureWellTest, ChecksTheGroundUnderAPictureAlone) {
  well_.setScaler([](const Picture&, std::int64_t width, std::int64_t height) {
    return std::optional(plainPicture({width, height}, {0, 0, 0, 0}));
  });
  well_.setImage(plainPicture({160, 160}));
  const QImage image = painted(well_);
  const QColor first = image.pixelColor(90, 90);
  const QColor second = image.pixelColor(98, 90);
  EXPECT_NE(first, second);
  EXPECT_EQ(image.pixelColor(106, 90), first);
  EXPECT_EQ(image.pixelColor(90, 98), second);
  EXPECT_EQ(image.pixelColor(40, 90), image.pixelColor(48, 90));
}

TEST_F(PictureWellTest, InvitesWhileItHoldsNothing) {
  const QImage inviting = painted(well_);
  QSignalSpy described(&well_, &PictureWell::contentsDescribed);
  well_.setImage(plainPicture({50, 50}));
  EXPECT_NE(painted(well_), inviting);
  well_.setImage(std::nullopt);
  EXPECT_EQ(painted(well_), inviting);
  well_.setImage(Picture{{50, 50}, std::nullopt});
  EXPECT_EQ(painted(well_), inviting);
  EXPECT_EQ(described.at(0).first(), "50 × 50 pixels");
  EXPECT_EQ(described.at(1).first(), "No picture yet");
  EXPECT_TRUE(sizes_.size() == 1);
}

TEST_F(PictureWellTest, TellsOfAPictureThatCannotBeScaledAndTriesOnce) {
  const QImage inviting = painted(well_);
  int tries = 0;
  well_.setScaler([&](const Picture&, std::int64_t, std::int64_t) {
    ++tries;
    return std::nullopt;
  });
  well_.setImage(plainPicture({1200, 10}));
  EXPECT_NE(painted(well_), inviting);
  painted(well_);
  EXPECT_EQ(tries, 1);
  EXPECT_EQ(well_.accessibleDescription(), "1200 × 10 pixels");
}

TEST_F(PictureWellTest, FramesItselfByItsLayer) {
  well_.setWantsLayer(true);
  well_.layer()->setBorderWidth(4.0);
  well_.layer()->setBorderColor(FrameColor::lightGray);
  const QImage image = painted(well_);
  const QColor frame = image.pixelColor(0, 168);
  for (int inwards = 0; inwards < 4; ++inwards) {
    EXPECT_EQ(image.pixelColor(inwards, 168), frame);
    EXPECT_EQ(image.pixelColor(335 - inwards, 168), frame);
    EXPECT_EQ(image.pixelColor(168, inwards), frame);
    EXPECT_EQ(image.pixelColor(168, 335 - inwards), frame);
  }
  EXPECT_NE(image.pixelColor(4, 168), frame);
  EXPECT_NE(image.pixelColor(331, 168), frame);
}

}  // namespace
}  // namespace tessarine
