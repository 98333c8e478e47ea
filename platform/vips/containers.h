#pragma once

#include <optional>

#include "platform/bytes.h"

// Files that only wrap pictures. Each gives the bytes of one picture of a plain kind, which goes to
// the ordinary decoder; nothing for a file that is damaged or holds no such picture.
namespace tessarine::containers {

// The largest picture of a Windows icon: PNG, or an icon of one picture.
std::optional<ByteBuffer> largestOfICO(const ByteBuffer& file);

// The largest picture of a macOS icon: PNG, JPEG 2000, or the held TIFF of a picture that the icon
// keeps in runs.
std::optional<ByteBuffer> largestOfICNS(const ByteBuffer& file);

// The drawing of a gzip file, at most `maximumDrawingBytes` of it.
std::optional<ByteBuffer> inflatedSVG(const ByteBuffer& file);

}  // namespace tessarine::containers
