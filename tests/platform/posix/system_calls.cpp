#include "tests/platform/posix/system_calls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>

#include <array>
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

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
  if (systemCalls.linkError != 0) return failed(systemCalls.linkError);
  using Function = int(int, const char*, int, const char*, int);
  return real<Function>("linkat")(fromFolder, from, toFolder, to, flags);
}

int fsync(int file) {
  if (systemCalls.syncError != 0) return failed(systemCalls.syncError);
  return real<int(int)>("fsync")(file);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
  if (const auto event = std::exchange(systemCalls.beforeRename, {})) event();
  return real<int(int, const char*, int, const char*)>("renameat")(fromFolder, from, toFolder, to);
}

long syscall(long number, ...) {
  std::va_list arguments;
  va_start(arguments, number);
  std::array<long, 6> a{};
  for (long& argument : a) argument = va_arg(arguments, long);
  va_end(arguments);
  const int error = systemCalls.kernelCheckError;
  if (number == SYS_openat2 && error != 0) return failed(error);
  return real<long(long, ...)>("syscall")(number, a[0], a[1], a[2], a[3], a[4], a[5]);
}

}  // extern "C"

}  // namespace tessarine::testing
