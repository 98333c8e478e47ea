#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tessarine {

// The number of user-perceived characters (extended grapheme clusters) of a UTF-8 text; nothing is
// trimmed.
std::size_t characterCount(std::string_view utf8);

// The leading decimal integer of a text, after optional white space and an optional sign: 0 when
// there is none, clamped to 32 bits.
std::int32_t intValue(std::string_view utf8);

}  // namespace tessarine
