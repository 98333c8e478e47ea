#pragma once

#include <string>
#include <string_view>

#include "platform/picture.h"
#include "platform/platform.h"

namespace tessarine {

// The path of a file: the folder, a separator, the name as it is, a dot and the extension.
std::string fileLocation(std::string_view folder, std::string_view name,
                         std::string_view extension);

// Writes the picture's bitmap in place as a PNG file. A picture without a bitmap, or one that
// cannot be encoded, writes and prints nothing; a failed write prints one "error saving: " line.
void writePNG(Platform& platform, const Picture& picture, const std::string& location);

// Replaces the file atomically with the text. A failure prints one "error saving: " line.
void writeContentsJSON(Platform& platform, const std::string& location, std::string_view text);

}  // namespace tessarine
