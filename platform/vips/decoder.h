#pragma once

#include <optional>
#include <string>

#include "platform/bytes.h"
#include "platform/picture.h"
#include "platform/vips/formats.h"
#include "platform/vips/regular_file.h"

namespace tessarine {

// A picture, or the reason why there is none: one line without a full stop, such as "Is a
// directory" or "damaged PNG picture".
struct Decoded {
  std::optional<Picture> picture;
  std::string refusal;
};

// The picture in encoded bytes of any readable kind; its bitmap may be a view of `bytes`.
Decoded decodePicture(const ByteBuffer& bytes);

// Whether the libraries of this machine read pictures of this kind.
bool canBeRead(const Format& format);

// Why the file is refused before a decoder sees it; empty when it is not.
std::string refusalOf(const RegularFile& file);

Decoded decodePicture(const RegularFile& file);

// Only a regular file is read; `path` is in the file system's own encoding.
Decoded decodePictureFile(const std::string& path);

}  // namespace tessarine
