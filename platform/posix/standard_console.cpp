#include "platform/posix/standard_console.h"

#include <cstdio>

namespace tessarine {

void StandardConsole::printLine(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

}  // namespace tessarine
