#pragma once

#include "platform/vips/vips_library.h"

namespace tessarine {

// The image in sRGB, 8 bits a sample: three bands, or four with an alpha that is not multiplied in.
// Its embedded profile, or a usual one for CMYK, says what its numbers mean. Null on failure.
Owned<VipsImage> toSRGB(VipsImage* image);

}  // namespace tessarine
