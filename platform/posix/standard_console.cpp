#include "platform/posix/standard_console.h"

#include <unistd.h>

#include <cstdint>
#include <string>

#include "platform/posix/write_whole.h"

namespace tessarine {

void StandardConsole::printLine(std::string_view text) {
  const std::string line = std::string(text) + '\n';
  writeWhole(STDOUT_FILENO, {reinterpret_cast<const std::uint8_t*>(line.data()), line.size()});
}

}  // namespace tessarine
