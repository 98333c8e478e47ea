#include "tests/support/under_valgrind.h"

#include <cstdlib>
#include <string_view>

namespace tessarine::testing {

bool underValgrind() {
  // It preloads a library of its own.
  const char* preloaded = std::getenv("LD_PRELOAD");
  return preloaded != nullptr &&
         std::string_view(preloaded).find("vgpreload") != std::string_view::npos;
}

}  // namespace tessarine::testing
