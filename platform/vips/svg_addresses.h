#pragma once

#include <optional>
#include <string_view>

namespace tessarine {

// An address that a style names by `url()`, with the property that stands before it: empty where
// none does since the last address. Both are views of the style.
struct StyleAddress {
  std::string_view property;
  std::string_view address;
};

// The next address of a style, taken off it with all that stands before; nothing behind the last.
// Styles are understood as they are plainly written: escapes, comments and quoted texts may hide an
// address.
std::optional<StyleAddress> takeAddress(std::string_view& style);

// Whether the address is that of a part of another drawing, which it carries itself.
bool refersIntoData(std::string_view address);

// Whether the style sheet imports another, which it carries itself.
bool importsData(std::string_view styleSheet);

}  // namespace tessarine
