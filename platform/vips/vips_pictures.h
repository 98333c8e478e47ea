#pragma once

#include "platform/pictures.h"

namespace tessarine {

// Pictures read by libvips; the held TIFF written and read by libtiff.
class VipsPictures final : public Pictures {
 public:
  std::optional<Picture> decode(const ByteBuffer& bytes) override;
  std::optional<Picture> decodeFile(const std::string& path) override;
  std::optional<ByteBuffer> tiffRepresentation(const Picture& picture) override;
  std::vector<std::string> imageTypes() override;
};

}  // namespace tessarine
