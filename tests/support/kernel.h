#pragma once

namespace tessarine::testing {

// Which version of Landlock, its confinement, the kernel has; below 1 if it has none.
long landlockVersion();

}  // namespace tessarine::testing
