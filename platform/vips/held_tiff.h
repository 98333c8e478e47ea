#pragma once

#include <optional>

#include "platform/bytes.h"
#include "platform/picture.h"

namespace tessarine {

// The bitmap as an uncompressed TIFF: RGBA with an unassociated alpha, one strip, 72 pixels to the
// inch, which is one point per pixel. Nothing when memory is refused.
std::optional<ByteBuffer> writeHeldTIFF(const Bitmap& bitmap);

// The strip of such a TIFF as a bitmap that views `held`; nothing for bytes that are laid out in
// any other way, however valid. Every offset is checked afresh.
std::optional<Bitmap> viewHeldTIFF(const ByteBuffer& held);

}  // namespace tessarine
