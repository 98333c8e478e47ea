#pragma once

#include <functional>

namespace tessarine::testing {

// What this test program does to its own system calls, of every thread.
struct SystemCalls {
  // The error of a call; 0 leaves it alone. Of opening a file without a name, of giving a file a
  // further name, of fsync, and of opening a file by the kernel's own check (openat2).
  int unnamedFileError = 0;
  int linkError = 0;
  int syncError = 0;
  int kernelCheckError = 0;
  // Done once, before the next file is renamed.
  std::function<void()> beforeRename;
};

extern SystemCalls systemCalls;

}  // namespace tessarine::testing
