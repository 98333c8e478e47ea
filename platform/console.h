#pragma once

#include <string_view>

namespace tessarine {

// The program's standard output.
class Console {
 public:
  virtual ~Console() = default;

  // Writes the text and a line feed and flushes both. A failure is ignored.
  virtual void printLine(std::string_view text) = 0;
};

}  // namespace tessarine
