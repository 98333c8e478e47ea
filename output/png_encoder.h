#pragma once

#include <optional>

#include "platform/bytes.h"
#include "platform/picture.h"

namespace tessarine {

// The bitmap as a complete PNG file: 8-bit RGBA, not interlaced, marked as sRGB. Nothing when
// memory does not suffice.
std::optional<ByteBuffer> encodePNG(const Bitmap& bitmap);

}  // namespace tessarine
