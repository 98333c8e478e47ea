#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

// The addresses that a style sheet, or an attribute in the same language, names by `url()`: those
// in its texts and comments too, so that none is missed.
std::vector<std::string> addressesIn(std::string_view css);

// Whether the address is that of a part of another drawing, which it carries itself.
bool refersIntoData(std::string_view address);

// Whether the style sheet may import another, which it carries itself.
bool importsData(std::string_view css);

}  // namespace tessarine
