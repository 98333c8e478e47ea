#pragma once

#include <string>

namespace tessarine {

// Prints one line on standard error, after the program's name.
void complain(const std::string& reason);

}  // namespace tessarine
