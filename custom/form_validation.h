#pragma once

#include "custom/custom_form.h"
#include "platform/platform.h"

namespace tessarine {

// Whether the form may be generated. The first fault found is told in one alert, after which the
// field at fault takes the focus.
bool validateForm(Platform& platform, const CustomForm& form);

}  // namespace tessarine
