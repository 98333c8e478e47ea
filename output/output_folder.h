#pragma once

#include <string>

#include "platform/platform.h"

namespace tessarine {

// Asks the user for the folder to write into: its path without a trailing separator, or the empty
// text when none was chosen.
std::string chooseOutputDirectory(Platform& platform);

// Opens the file manager on the folder, with no file selected.
void revealInFileManager(Platform& platform, const std::string& rootPath);

}  // namespace tessarine
