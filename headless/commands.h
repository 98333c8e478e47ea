#pragma once

#include "headless/command_line.h"

namespace tessarine {

// What the program ends with.
enum class ExitStatus {
  written = 0,     // every file
  incomplete = 1,  // not every file; a line on standard output tells of each failed write
  refused = 2,     // the usage or the picture; nothing was written
};

ExitStatus run(const ShowHelp& command);
ExitStatus run(const ShowVersion& command);
ExitStatus run(const WrongUsage& command);
ExitStatus run(const CutSets& command);
ExitStatus run(const CutCustom& command);

}  // namespace tessarine
