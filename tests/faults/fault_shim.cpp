// Preloaded into the program: numbers the calls that it makes on its output and lets the one
// asked for fail, fall short or be its last. Told by the environment:
//   FAULT_KIND    an error's number, "short" (half of a write), "kill" (before the call) or "tear"
//                 (after half of a write); nothing is done without it
//   FAULT_AT      the number of the call, from 1 on; of the writes alone for "short" and "tear"
//   FAULT_ONWARD  every call from there on, when set
//   FAULT_NAMED   files without a name are refused, when set, as by a lesser file system
//   FAULT_REPORT  the file for the number of calls met and of those that were disturbed
#include <dlfcn.h>
#include <fcntl.h>
#include <linux/openat2.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

template <class Function>
Function* real(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

const char* setting(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

const std::string_view kind = setting("FAULT_KIND");
const int at = std::atoi(setting("FAULT_AT"));
const bool onward = std::getenv("FAULT_ONWARD") != nullptr;
const bool namedOnly = std::getenv("FAULT_NAMED") != nullptr;
int met = 0;
int disturbed = 0;
// The descriptors of the output: folders, and files open for writing.
enum class Kind : char { other, folder, file };
std::array<Kind, 1024> kinds{};

struct Report {
  ~Report() {
    if (file == nullptr) return;
    std::fprintf(file, "%d %d\n", met, disturbed);
    std::fclose(file);
  }
  // Opened at once: later the program has no right to.
  FILE* file = std::fopen(setting("FAULT_REPORT"), "w");
} report;

// Whether the call at hand is to be disturbed.
bool isNext() {
  ++met;
  const bool next = !kind.empty() && (onward ? met >= at : met == at);
  if (next) ++disturbed;
  return next;
}

// For a call other than a write: whether it must fail, with errno set.
bool fails() {
  if (kind == "short" || kind == "tear" || !isNext()) return false;
  if (kind == "kill") ::raise(SIGKILL);
  errno = std::atoi(kind.data());
  return true;
}

// The same, for a call that no signal interrupts: it is numbered all the same.
bool failsUninterrupted() {
  if (std::atoi(kind.data()) != EINTR) return fails();
  ++met;
  return false;
}

int noted(int descriptor, int flags) {
  const Kind kindOf = (flags & O_WRONLY) != 0 ? Kind::file : Kind::folder;
  if (descriptor >= 0) kinds.at(static_cast<std::size_t>(descriptor)) = kindOf;
  return descriptor;
}

bool is(Kind kindOf, int descriptor) {
  return descriptor >= 0 && kinds.at(static_cast<std::size_t>(descriptor)) == kindOf;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const auto mode = va_arg(arguments, unsigned);
  va_end(arguments);
  const auto call = real<int(const char*, int, ...)>("open");
  // The folder of the grant is opened for its path alone.
  const bool isGrant = (flags & O_PATH) != 0 && (flags & O_DIRECTORY) != 0;
  if (!isGrant) return call(path, flags, mode);
  return fails() ? -1 : noted(call(path, flags, mode), flags);
}

int openat(int folder, const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const auto mode = va_arg(arguments, unsigned);
  va_end(arguments);
  const bool unnamed = (flags & O_TMPFILE) == O_TMPFILE;
  if (unnamed && namedOnly) {
    errno = EOPNOTSUPP;
    return -1;
  }
  // A file without a name costs nothing when it is refused: one with a name is opened instead.
  if (!unnamed && is(Kind::folder, folder) && fails()) return -1;
  const int file = real<int(int, const char*, int, ...)>("openat")(folder, path, flags, mode);
  return is(Kind::folder, folder) ? noted(file, flags) : file;
}

long syscall(long number, ...) {
  std::va_list arguments;
  va_start(arguments, number);
  std::array<long, 6> a{};
  for (long& argument : a) argument = va_arg(arguments, long);
  va_end(arguments);
  if (number == SYS_openat2 && fails()) return -1;
  const long result = real<long(long, ...)>("syscall")(number, a[0], a[1], a[2], a[3], a[4], a[5]);
  if (number != SYS_openat2) return result;
  const auto* how = reinterpret_cast<const open_how*>(a[2]);
  return noted(static_cast<int>(result), static_cast<int>(how->flags));
}

ssize_t write(int file, const void* bytes, size_t count) {
  const auto call = real<ssize_t(int, const void*, size_t)>("write");
  if (!is(Kind::file, file)) return call(file, bytes, count);
  if (kind != "short" && kind != "tear") return fails() ? -1 : call(file, bytes, count);
  // A single byte cannot be cut in two.
  if (count < 2 || !isNext()) return call(file, bytes, count);
  const ssize_t written = call(file, bytes, count / 2);
  if (kind == "tear") ::raise(SIGKILL);
  return written;
}

int close(int file) {
  // What closing a folder answers means nothing.
  const bool failed = is(Kind::file, file) && fails();
  if (!is(Kind::other, file) && file >= 0) kinds.at(static_cast<std::size_t>(file)) = Kind::other;
  const int error = errno;
  // The system closes the file also where it reports an error.
  const int result = real<int(int)>("close")(file);
  if (!failed) return result;
  errno = error;
  return -1;
}

int mkdir(const char* path, mode_t mode) {
  if (failsUninterrupted()) return -1;
  return real<int(const char*, mode_t)>("mkdir")(path, mode);
}

int fstat(int file, struct stat* status) {
  if ((is(Kind::file, file) || is(Kind::folder, file)) && failsUninterrupted()) return -1;
  return real<int(int, struct stat*)>("fstat")(file, status);
}

// For the name of a temporary file.
int getentropy(void* bytes, size_t count) {
  if (failsUninterrupted()) return -1;
  return real<int(void*, size_t)>("getentropy")(bytes, count);
}

int ftruncate(int file, off_t length) {
  if (is(Kind::file, file) && fails()) return -1;
  return real<int(int, off_t)>("ftruncate")(file, length);
}

int fchmod(int file, mode_t mode) {
  if (is(Kind::file, file) && fails()) return -1;
  return real<int(int, mode_t)>("fchmod")(file, mode);
}

int fsync(int file) {
  if (is(Kind::file, file) && fails()) return -1;
  return real<int(int)>("fsync")(file);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
  if (fails()) return -1;
  using Function = int(int, const char*, int, const char*, int);
  return real<Function>("linkat")(fromFolder, from, toFolder, to, flags);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
  if (fails()) return -1;
  return real<int(int, const char*, int, const char*)>("renameat")(fromFolder, from, toFolder, to);
}

int unlinkat(int folder, const char* path, int flags) {
  if (fails()) return -1;
  return real<int(int, const char*, int)>("unlinkat")(folder, path, flags);
}

}  // extern "C"
