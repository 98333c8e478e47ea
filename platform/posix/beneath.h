#pragma once

#include <sys/types.h>

#include <string>

#include "platform/posix/descriptor.h"

namespace tessarine {

// Who makes sure that a path stays beneath a folder.
enum class Resolution {
  kernel,  // in one call, where the kernel has it, and by hand elsewhere
  walked,  // by hand, component by component
};

struct Opened {
  Descriptor file;
  int error = 0;
};

// Opens a path beneath a folder. A path that leads out of it, by `..`, by an absolute link or by a
// link that climbs, fails with EXDEV; links that stay inside are followed.
// `mode` is for a file that O_CREAT makes, and 0 without that flag. Safe against changes that
// others make in the folder meanwhile.
Opened openBeneath(const Descriptor& folder, const std::string& path, int flags, mode_t mode,
                   Resolution resolution);

}  // namespace tessarine
