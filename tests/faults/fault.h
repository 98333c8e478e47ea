#pragma once

#include <array>
#include <cerrno>
#include <string>
#include <vector>

#include "tests/headless/program.h"

namespace tessarine::testing {

// What is done to a call that the program makes on its output.
struct FaultKind {
  const char* name;
  // For the preloaded library.
  std::string code;
};

inline const std::vector<FaultKind> errorKinds{
    {"ENOSPC", std::to_string(ENOSPC)}, {"EIO", std::to_string(EIO)},
    {"EACCES", std::to_string(EACCES)}, {"EDQUOT", std::to_string(EDQUOT)},
    {"EINTR", std::to_string(EINTR)},   {"short write", "short"},
};
inline const std::vector<FaultKind> killKinds{{"SIGKILL", "kill"}, {"SIGKILL in a write", "tear"}};

struct Fault {
  FaultKind kind;
  // The number of the call among those that the kind applies to, from 1 on.
  int at = 1;
  // Every call from there on, not this one alone.
  bool onward = false;

  std::string label() const;
};

struct FaultedRun {
  Outcome outcome;
  // How many calls were met and how many of them disturbed; unknown (-1) after a kill.
  int met = -1;
  int disturbed = -1;
};

// `unnamedFiles` tells whether the file system has files without a name.
FaultedRun runWithFault(const std::vector<std::string>& arguments, const Fault& fault,
                        bool unnamedFiles);

}  // namespace tessarine::testing
