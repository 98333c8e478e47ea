#include "tests/support/kernel.h"

#include <linux/landlock.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tessarine::testing {

long landlockVersion() {
  return ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
}

}  // namespace tessarine::testing
