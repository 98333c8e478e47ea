#pragma once

#include "platform/console.h"

namespace tessarine {

// Standard output.
class StandardConsole final : public Console {
 public:
  void printLine(std::string_view text) override;
};

}  // namespace tessarine
