#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

// Standard base64 with padding and without line breaks.
std::string encodeBase64(std::span<const std::uint8_t> bytes);

// Nothing for a text that `encodeBase64` could not have made.
std::optional<std::vector<std::uint8_t>> decodeBase64(std::string_view text);

}  // namespace tessarine
