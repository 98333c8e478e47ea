#pragma once

#include <functional>

namespace tessarine::testing {

// What this test program does to its own system calls, of every thread.
struct SystemCalls {
  // The error of opening a file without a name, and of fsync; 0 leaves the call alone.
  int unnamedFileError = 0;
  int syncError = 0;
  // Done once, before the next file is renamed.
  std::function<void()> beforeRename;
};

extern SystemCalls systemCalls;

}  // namespace tessarine::testing
