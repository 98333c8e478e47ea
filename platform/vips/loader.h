#pragma once

#include "platform/bytes.h"
#include "platform/vips/formats.h"
#include "platform/vips/vips_library.h"

namespace tessarine {

// The picture as its loader presents it, of which no more than the header need have been read. A
// vector picture is given the size at which it is to be drawn. Null on failure. `bytes` must
// outlive the image.
Owned<VipsImage> loadHeader(const Format& format, const ByteBuffer& bytes);

}  // namespace tessarine
