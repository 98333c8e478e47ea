#pragma once

#include <cstddef>

#include "platform/picture.h"

namespace tessarine::benchmarks {

// Encodes in memory with libpng's adaptive filters at level 6 and answers with the bytes of the
// file.
std::size_t encodedByLibpng(const Bitmap& bitmap);

}  // namespace tessarine::benchmarks
