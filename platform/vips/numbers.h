#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tessarine {

// Numbers as files store them. `at` and the bytes behind it must lie inside.

inline std::uint32_t little16(std::span<const std::uint8_t> bytes, std::size_t at) {
  return std::uint32_t{bytes[at]} | std::uint32_t{bytes[at + 1]} << 8;
}
inline std::uint32_t little32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return little16(bytes, at) | little16(bytes, at + 2) << 16;
}
inline std::uint32_t big32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return std::uint32_t{bytes[at]} << 24 | std::uint32_t{bytes[at + 1]} << 16 |
         std::uint32_t{bytes[at + 2]} << 8 | bytes[at + 3];
}

}  // namespace tessarine
