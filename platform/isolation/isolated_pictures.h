#pragma once

#include <chrono>
#include <string>

#include "platform/pictures.h"
#include "platform/vips/decoder.h"
#include "platform/vips/vips_pictures.h"

namespace tessarine {

// Pictures of which every foreign byte is decoded in another process, so that a decoder that
// crashes, takes all memory or never ends costs no more than the picture. The program's own TIFF,
// which a run reads for each of its files, is viewed at once.
class IsolatedPictures final : public Pictures {
 public:
  // `program` is a file whose `main` calls `decodeIfAsked`: if none is named, that of this process,
  // even when an upgrade has replaced it.
  explicit IsolatedPictures(std::string program = "/proc/self/exe",
                            std::chrono::milliseconds patience = std::chrono::seconds(10));

  std::optional<Picture> decode(const ByteBuffer& bytes) override;
  std::optional<Picture> decodeFile(const std::string& path) override;
  std::optional<ByteBuffer> tiffRepresentation(const Picture& picture) override;
  std::vector<std::string> imageTypes() override;

  // As `decodeFile`, with the reason of a refusal.
  Decoded read(const std::string& path) const;

 private:
  Decoded read(const RegularFile& file) const;

  std::string program_;
  std::chrono::milliseconds patience_;
  VipsPictures vips_;
};

}  // namespace tessarine
