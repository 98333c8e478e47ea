#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/bytes.h"
#include "platform/picture.h"

namespace tessarine {

// Reads pictures. Bytes and files that are not a readable picture give nothing: never an error,
// never a message.
class Pictures {
 public:
  virtual ~Pictures() = default;

  // The picture in encoded bytes of any readable kind. Its bitmap may be a view of `bytes`, whose
  // memory it then keeps alive.
  virtual std::optional<Picture> decode(const ByteBuffer& bytes) = 0;
  // Only a regular file is read; `path` is in the file system's own encoding.
  virtual std::optional<Picture> decodeFile(const std::string& path) = 0;
  // The picture as an uncompressed TIFF; nothing for a picture without a bitmap.
  virtual std::optional<ByteBuffer> tiffRepresentation(const Picture& picture) = 0;
  // The MIME types of the pictures that can be read, in order of preference.
  virtual std::vector<std::string> imageTypes() = 0;
};

}  // namespace tessarine
