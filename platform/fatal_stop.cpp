#include "platform/fatal_stop.h"

#include <cstdlib>

namespace tessarine {

void fatalStop() noexcept {
  std::abort();
}

}  // namespace tessarine
