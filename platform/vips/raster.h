#pragma once

#include <optional>

#include "platform/picture.h"
#include "platform/vips/vips_library.h"

namespace tessarine {

// The pixels of an image of `toSRGB`, turned upright by its EXIF orientation (1 to 8). Nothing
// when a part of it cannot be decoded or when memory is refused.
std::optional<Bitmap> rasterise(VipsImage* image, int orientation);

}  // namespace tessarine
