#include "platform/qt/content_type.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "tests/support/temporary_folder.h"

namespace tessarine {
namespace {

class ContentType : public ::testing::Test {
 protected:
  std::string path(const std::string& name) const { return (folder_.path() / name).string(); }
  std::string file(const std::string& name, std::string_view text) const {
    testing::writeFile(path(name), text);
    return path(name);
  }

  testing::TemporaryFolder folder_;
};

constexpr std::string_view png = "\x89PNG\r\n\x1a\n and so on";

TEST_F(ContentType, IsToldByTheContentsWhereTheNameSaysNothing) {
  EXPECT_TRUE(conformsToTypes(file("nameless", png), {"image/png"}));
  EXPECT_FALSE(conformsToTypes(file("noise", std::string_view("\0\1\2\3", 4)), {"image/png"}));
}

TEST_F(ContentType, IsToldByTheNameWhereItIsKnown) {
  EXPECT_TRUE(conformsToTypes(file("broken.png", "words"), {"image/png"}));
  EXPECT_FALSE(conformsToTypes(file("disguised.zip", png), {"image/png", "text/plain"}));
}

TEST_F(ContentType, Inherits) {
  const std::string drawing = file("drawing.svg", "<svg xmlns='http://www.w3.org/2000/svg'/>");
  EXPECT_TRUE(conformsToTypes(drawing, {"image/svg+xml"}));
  EXPECT_TRUE(conformsToTypes(drawing, {"text/plain"}));
  EXPECT_FALSE(conformsToTypes(drawing, {"image/png"}));
  EXPECT_TRUE(inheritsType("image/svg+xml", "text/plain"));
  EXPECT_TRUE(inheritsType("image/x-bmp", "image/bmp"));
  EXPECT_FALSE(inheritsType("text/plain", "image/svg+xml"));
  EXPECT_FALSE(inheritsType("image/x-unheard-of", "image/png"));
}

TEST_F(ContentType, IsNobodysWithoutTypes) {
  EXPECT_FALSE(conformsToTypes(file("a.png", png), {}));
}

TEST_F(ContentType, BelongsToRegularFilesAlone) {
  std::filesystem::create_directory(path("folder.png"));
  ASSERT_EQ(::mkfifo(path("pipe.png").c_str(), 0600), 0);
  std::filesystem::create_symlink(path("nowhere"), path("dangling.png"));
  std::filesystem::create_symlink(file("a.png", png), path("link.png"));
  EXPECT_FALSE(conformsToTypes(path("folder.png"), {"image/png"}));
  EXPECT_FALSE(conformsToTypes(path("pipe.png"), {"image/png"}));
  EXPECT_FALSE(conformsToTypes(path("dangling.png"), {"image/png"}));
  EXPECT_FALSE(conformsToTypes(path("missing.png"), {"image/png"}));
  EXPECT_FALSE(conformsToTypes("", {"image/png"}));
  EXPECT_TRUE(conformsToTypes(path("link.png"), {"image/png"}));
}

}  // namespace
}  // namespace tessarine
