#pragma once

#include "iconsets/icon_set.h"
#include "intake/icon_info.h"
#include "platform/platform.h"

namespace tessarine {

// Asks for a folder, writes the set's files into it in order, then its catalogue, and shows the
// folder. A cancelled question and failed writes do not end the run; a picture that is missing or
// does not decode stops the program.
void generateIconSet(Platform& platform, const IconInfo& iconInfo, const IconSet& set);

}  // namespace tessarine
