#pragma once

#include <optional>
#include <string>

#include "intake/icon_info.h"
#include "platform/pictures.h"

namespace tessarine {

// Reads the picture file into a record, as a drop of it does. Before the first of its bytes is
// read the process confines itself, as far as the kernel can, to this picture and to writing
// beneath `folder`, which is created when missing.
// Nothing when the picture cannot be read: the reason is then on standard error and the folder as
// it was.
std::optional<IconInfo> takeIn(Pictures& pictures, const std::string& picture,
                               const std::string& folder);

// Prints one line on standard error.
void complain(const std::string& reason);

}  // namespace tessarine
