#pragma once

#include "custom/custom_form.h"
#include "platform/platform.h"

namespace tessarine {

// Whether the form may be generated. The first fault found is told in one alert, the field at
// fault takes the focus, and the answer is false.
bool validateForm(Platform& platform, const CustomForm& form);

}  // namespace tessarine
