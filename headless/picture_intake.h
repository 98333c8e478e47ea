#pragma once

#include <optional>
#include <string>

#include "intake/icon_info.h"
#include "platform/isolation/isolated_pictures.h"

namespace tessarine {

// Reads the picture file into a record, as a drop of it does. Afterwards `folder` exists, if it can
// be created, and the process is confined, as far as the kernel can, to writing beneath it.
// Nothing when the picture cannot be read: the reason is then on standard error and the folder as
// it was.
std::optional<IconInfo> takeIn(IsolatedPictures& pictures, const std::string& picture,
                               const std::string& folder);

}  // namespace tessarine
