#pragma once

#include "custom/custom_form.h"
#include "intake/icon_info.h"
#include "platform/platform.h"

namespace tessarine {

// Asks for a folder, writes one file for each row whose three fields have at least two characters,
// in row order, and shows the folder. A cancelled question and failed writes do not end the run; a
// qualifying row without a picture stops the program.
void generateCustomIcons(Platform& platform, const IconInfo& iconInfo, const CustomForm& form);

}  // namespace tessarine
