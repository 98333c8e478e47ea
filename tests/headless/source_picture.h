#pragma once

#include <string>

#include "tests/headless/png_image.h"
#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

// A folder with a picture to cut, and a place for the icons that does not exist yet.
class SourcePicture {
 public:
  explicit SourcePicture(int width = 64, int height = 64) {
    drawPNG(picture(), width, height, [=](int x, int y) {
      const auto level = [](int i, int count) {
        return static_cast<std::uint8_t>(i * 255 / count);
      };
      return Pixel{level(x, width), level(y, height), 128, level(x + y, width + height)};
    });
  }

  const std::filesystem::path& root() const { return folder_.path(); }
  std::string picture() const { return root() / "picture.png"; }
  std::filesystem::path icons() const { return root() / "icons"; }

 private:
  TemporaryFolder folder_;
};

}  // namespace tessarine::testing
