#pragma once

#include <cstdint>
#include <span>

namespace tessarine {

// Writes all of the bytes, with one call where the system takes them whole; waits where somebody
// has made the descriptor non-blocking. The error, or 0.
int writeWhole(int descriptor, std::span<const std::uint8_t> bytes);

}  // namespace tessarine
