#pragma once

#include <string>
#include <string_view>

namespace tessarine {

// The text on one line of well-formed UTF-8: control characters, line separators, backslashes and
// bytes that are no UTF-8 are escaped.
std::string oneLine(std::string_view text);

}  // namespace tessarine
