#include "intake/base64.h"

#include <cstddef>

namespace tessarine {

namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string encodeBase64(std::span<const std::uint8_t> bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = bytes.size() - i < 3 ? bytes.size() - i : 3;
    std::uint32_t group = 0;
    for (std::size_t k = 0; k < 3; ++k) group = group << 8 | (k < count ? bytes[i + k] : 0U);
    for (std::size_t k = 0; k < 4; ++k) {
      text += k <= count ? alphabet[group >> (18 - 6 * k) & 63] : '=';
    }
  }
  return text;
}

std::optional<std::vector<std::uint8_t>> decodeBase64(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  std::size_t padding = 0;
  while (padding < 2 && text.ends_with('=')) {
    text.remove_suffix(1);
    ++padding;
  }
  std::vector<std::uint8_t> bytes;
  bytes.reserve(text.size() * 3 / 4);
  std::uint32_t bits = 0;
  int held = 0;
  for (const char c : text) {
    const auto value = alphabet.find(c);
    if (value == std::string_view::npos) return std::nullopt;
    bits = bits << 6 | static_cast<std::uint32_t>(value);
    held += 6;
    if (held >= 8) {
      held -= 8;
      bytes.push_back(static_cast<std::uint8_t>(bits >> held));
      bits &= (1U << held) - 1;
    }
  }
  if (bits != 0) return std::nullopt;
  return bytes;
}

}  // namespace tessarine
