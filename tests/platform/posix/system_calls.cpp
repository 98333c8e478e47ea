#include "tests/platform/posix/system_calls.h"

#include <dlfcn.h>
#include <fcntl.h>

#include <cerrno>
#include <cstdarg>
#include <utility>

namespace tessarine::testing {

SystemCalls systemCalls;

namespace {

template <class Function>
Function* real(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

int failed(int error) {
  errno = error;
  return -1;
}

}  // namespace

extern "C" {

int openat(int folder, const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const auto mode = va_arg(arguments, unsigned);
  va_end(arguments);
  const bool unnamed = (flags & O_TMPFILE) == O_TMPFILE;
  if (unnamed && systemCalls.unnamedFileError != 0) return failed(systemCalls.unnamedFileError);
  return real<int(int, const char*, int, ...)>("openat")(folder, path, flags, mode);
}

int fsync(int file) {
  if (systemCalls.syncError != 0) return failed(systemCalls.syncError);
  return real<int(int)>("fsync")(file);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
  if (const auto event = std::exchange(systemCalls.beforeRename, {})) event();
  return real<int(int, const char*, int, const char*)>("renameat")(fromFolder, from, toFolder, to);
}

}  // extern "C"

}  // namespace tessarine::testing
