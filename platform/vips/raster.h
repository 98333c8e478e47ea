#pragma once

#include <chrono>
#include <optional>

#include "platform/picture.h"
#include "platform/vips/vips_library.h"

namespace tessarine {

// When decoding gives up.
using Deadline = std::chrono::steady_clock::time_point;

// The pixels of an image of `toSRGB`, turned upright by its EXIF orientation (1 to 8). Nothing
// when a part of it cannot be decoded, when the deadline has passed or when memory is refused.
std::optional<Bitmap> rasterise(VipsImage* image, int orientation, Deadline deadline);

}  // namespace tessarine
