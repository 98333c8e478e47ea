#pragma once

#include <cstddef>
#include <optional>

#include "platform/bytes.h"
#include "platform/picture.h"

namespace tessarine {

// The bitmap as a complete PNG file: 8-bit RGBA, not interlaced, marked as sRGB. Nothing when
// memory does not suffice.
std::optional<ByteBuffer> encodePNG(const Bitmap& bitmap);

// The level of compression, one of libdeflate's, for filtered rows of so many bytes, of which
// `zeros` are 0.
int compressionLevel(std::size_t zeros, std::size_t filteredBytes) noexcept;

}  // namespace tessarine
