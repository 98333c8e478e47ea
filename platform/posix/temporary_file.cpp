#include "platform/posix/temporary_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/retried.h"
#include "platform/posix/write_whole.h"

namespace tessarine {

namespace {

int setMode(int file, mode_t mode) {
  struct stat status;
  if (::fstat(file, &status) != 0) return errno;
  if ((status.st_mode & 0777) == mode) return 0;
  return ::fchmod(file, mode) == 0 ? 0 : errno;
}

int sync(int file) {
  if (retried([&] { return ::fsync(file); }) == 0) return 0;
  // A file system that cannot be asked for this has taken the bytes all the same.
  return errno == EINVAL || errno == EROFS || errno == ENOTSUP ? 0 : errno;
}

}  // namespace

TemporaryFile::~TemporaryFile() {
  if (named_) retried([&] { return ::unlinkat(folder_.number(), name_.c_str(), 0); });
}

int TemporaryFile::open() {
  std::uint64_t number = 0;
  if (::getentropy(&number, sizeof number) != 0) return errno;
  name_ = ".tessarine-" + std::to_string(number);
  const auto opened = [&](const char* path, int flags) {
    flags |= O_WRONLY | O_CLOEXEC;
    file_ = Descriptor(retried([&] { return ::openat(folder_.number(), path, flags, 0666); }));
    return file_ ? 0 : errno;
  };
  if (naming_ == Naming::late && opened(".", O_TMPFILE) == 0) return 0;
  const int error = opened(name_.c_str(), O_CREAT | O_EXCL | O_NOFOLLOW);
  named_ = error == 0;
  return error;
}

int TemporaryFile::fill(std::span<const std::uint8_t> bytes, std::optional<mode_t> mode) {
  int error = writeWhole(file_.number(), bytes);
  if (error == 0 && mode) error = setMode(file_.number(), *mode);
  // The new name must not reach the disk before the bytes do.
  return error == 0 ? sync(file_.number()) : error;
}

int TemporaryFile::giveName() {
  const std::string self = "/proc/self/fd/" + std::to_string(file_.number());
  const auto link = [&] {
    return ::linkat(AT_FDCWD, self.c_str(), folder_.number(), name_.c_str(), AT_SYMLINK_FOLLOW);
  };
  if (retried(link) != 0) return errno;
  named_ = true;
  return 0;
}

int TemporaryFile::publish() {
  const int error = named_ ? 0 : giveName();
  return error == 0 ? file_.close() : error;
}

int TemporaryFile::replace(const std::string& name) {
  const auto rename = [&] {
    return ::renameat(folder_.number(), name_.c_str(), folder_.number(), name.c_str());
  };
  if (retried(rename) != 0) return errno;
  named_ = false;
  return 0;
}

}  // namespace tessarine
