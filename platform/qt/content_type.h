#pragma once

#include <string>
#include <vector>

namespace tessarine {

// Whether a regular file's content type, told by its name and its contents, is one of the MIME
// types or inherits from one. False for whatever is no regular file that can be read.
bool conformsToTypes(const std::string& path, const std::vector<std::string>& types);

// Whether a MIME type is the other one, an alias of it, or inherits from it.
bool inheritsType(const std::string& type, const std::string& ancestor);

}  // namespace tessarine
