#include <gtest/gtest.h>

#include <string>

#include "platform/vips/decoder.h"
#include "tests/platform/vips/bomb_parts.h"
#include "tests/platform/vips/drawn_pictures.h"

namespace tessarine {
namespace {

using testing::Pixel;
using testing::pixelAt;

std::optional<Bitmap> decode(const std::string& bytes) {
  const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
  const auto picture = decodePicture(ByteBuffer({first, bytes.size()}, nullptr)).picture;
  return picture ? picture->bitmap : std::nullopt;
}

// As many pixels as a camera of a telephone takes.
TEST(LargePicture, Of108MegapixelsIsRead) {
  std::string rows(std::size_t{12001} * 9000, '\0');
  rows.back() = '\xff';
  const auto bitmap = decode(testing::png(12000, 9000, rows));
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->size(), (PixelSize{12000, 9000}));
  EXPECT_EQ(pixelAt(*bitmap, 11998, 8999), (Pixel{0, 0, 0, 255}));
  EXPECT_EQ(pixelAt(*bitmap, 11999, 8999), (Pixel{255, 255, 255, 255}));
}

// As large as a bitmap may be, since it cannot be as large as is wanted.
TEST(LargePicture, OfANarrowDrawingIsDrawnToItsEnd) {
  const auto bitmap = decode(R"(<svg xmlns="http://www.w3.org/2000/svg" width="4" height="4000">)"
                             R"(<rect y="3000" width="4" height="1000" fill="#f00"/></svg>)");
  ASSERT_TRUE(bitmap);
  const PixelSize size = bitmap->size();
  EXPECT_EQ(pixelAt(*bitmap, size.width / 2, 100), (Pixel{0, 0, 0, 0}));
  // At the edges, rounding may leave a margin.
  EXPECT_EQ(pixelAt(*bitmap, size.width / 2, size.height - 100), (Pixel{255, 0, 0, 255}));
}

}  // namespace
}  // namespace tessarine
