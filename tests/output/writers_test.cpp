#include "output/writers.h"

#include <gmock/gmock.h>

#include "output/png_encoder.h"
#include "tests/support/recording_platform.h"
#include "tests/support/refused_new.h"
#include "tests/support/under_valgrind.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(FileLocation, JoinsFolderNameAndExtensionAsTheyAre) {
  EXPECT_EQ(fileLocation("/picked", "Icon", "png"), "/picked/Icon.png");
  EXPECT_EQ(fileLocation("", "Icon", "png"), "/Icon.png");
  EXPECT_EQ(fileLocation("/", "Contents", "json"), "//Contents.json");
  EXPECT_EQ(fileLocation("/a b", "../x.png", "png"), "/a b/../x.png.png");
  EXPECT_EQ(fileLocation("/a", std::string_view("x\0y", 3), "png"), std::string("/a/x\0y.png", 10));
}

class Writers : public ::testing::Test {
 protected:
  testing::RecordingPlatform host;
};

TEST_F(Writers, WriteTheEncodedBitmapInPlace) {
  const Picture picture = testing::plainPicture({3, 2});
  writePNG(host.platform, picture, "/picked/a.png");
  EXPECT_THAT(host.journal, ElementsAre("write /picked/a.png 3x2"));
  const auto png = encodePNG(*picture.bitmap).value();
  EXPECT_EQ(host.files.written.at("/picked/a.png"),
            std::string(reinterpret_cast<const char*>(png.bytes().data()), png.bytes().size()));
}

TEST_F(Writers, WriteThePixelsOfTheBitmapWhateverThePoints) {
  Picture picture = testing::plainPicture({3, 2});
  picture.points = {6, 4};
  writePNG(host.platform, picture, "/picked/a.png");
  EXPECT_THAT(host.journal, ElementsAre("write /picked/a.png 3x2"));
}

TEST_F(Writers, PassOverAPictureWithoutABitmap) {
  writePNG(host.platform, Picture{{0, 5}, std::nullopt}, "/picked/a.png");
  EXPECT_THAT(host.journal, IsEmpty());
}

TEST_F(Writers, PassOverAPictureThatMemoryDoesNotSufficeToEncode) {
  if (testing::underValgrind()) GTEST_SKIP() << "valgrind has a `new` of its own";
  const Picture picture = testing::plainPicture({3, 2});
  const std::string location = "/picked/a.png";
  {
    const testing::RefusedNew refused;
    writePNG(host.platform, picture, location);
  }
  EXPECT_THAT(host.journal, IsEmpty());
}

TEST_F(Writers, ReplaceTheCatalogueWithExactlyTheText) {
  writeContentsJSON(host.platform, "/picked/Contents.json", "{\n}");
  EXPECT_THAT(host.journal, ElementsAre("replace /picked/Contents.json"));
  EXPECT_EQ(host.files.written.at("/picked/Contents.json"), "{\n}");
}

TEST_F(Writers, PrintOneLineForAFailure) {
  host.files.allFail = true;
  writePNG(host.platform, testing::plainPicture({1, 1}), "/picked/a.png");
  writeContentsJSON(host.platform, "/picked/Contents.json", "{}");
  EXPECT_THAT(host.journal,
              ElementsAre("write /picked/a.png 1x1", "print error saving: /picked/a.png: refused",
                          "replace /picked/Contents.json",
                          "print error saving: /picked/Contents.json: refused"));
}

}  // namespace
}  // namespace tessarine
