#include "tests/support/memory_limit.h"

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace tessarine::testing {

bool memoryCanBeLimited() {
#if defined(__SANITIZE_ADDRESS__)
  return false;
#elif defined(__has_feature)
  return !__has_feature(address_sanitizer);
#else
  return true;
#endif
}

void leaveMemory(std::size_t bytes) {
  // What the allocator holds back must not help.
  malloc_trim(0);
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const auto pageBytes = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  const rlimit limit{pages * pageBytes + bytes, RLIM_INFINITY};
  if (::setrlimit(RLIMIT_AS, &limit) != 0) std::_Exit(2);
}

}  // namespace tessarine::testing
