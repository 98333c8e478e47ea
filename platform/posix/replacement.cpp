#include "platform/posix/replacement.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/retried.h"
#include "platform/posix/write_whole.h"

namespace tessarine {

namespace {

// Always the same name, so that what a killed run left behind goes with the next one.
constexpr const char* temporaryName = ".tessarine-new";

int createTemporary(const Descriptor& folder) {
  const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  return retried([&] { return ::openat(folder.number(), temporaryName, flags, 0666); });
}

int removeTemporary(const Descriptor& folder) {
  return retried([&] { return ::unlinkat(folder.number(), temporaryName, 0); });
}

int setMode(int file, mode_t mode) {
  struct stat status;
  if (::fstat(file, &status) != 0) return errno;
  if ((status.st_mode & 0777) == mode) return 0;
  return ::fchmod(file, mode) == 0 ? 0 : errno;
}

int fill(Descriptor file, std::span<const std::uint8_t> bytes, std::optional<mode_t> mode) {
  int error = writeWhole(file.number(), bytes);
  if (error == 0 && mode) error = setMode(file.number(), *mode);
  // The new name must not reach the disk before the bytes do.
  if (error == 0 && retried([&] { return ::fsync(file.number()); }) != 0) error = errno;
  const int closing = file.close();
  return error != 0 ? error : closing;
}

}  // namespace

int replaceFile(const Descriptor& folder, const std::string& name,
                std::span<const std::uint8_t> bytes, std::optional<mode_t> mode) {
  Descriptor file(createTemporary(folder));
  if (!file && errno == EEXIST && removeTemporary(folder) == 0) {
    file = Descriptor(createTemporary(folder));
  }
  if (!file) return errno;
  int error = fill(std::move(file), bytes, mode);
  const auto rename = [&] {
    return ::renameat(folder.number(), temporaryName, folder.number(), name.c_str());
  };
  if (error == 0 && retried(rename) != 0) error = errno;
  if (error != 0) removeTemporary(folder);
  return error;
}

}  // namespace tessarine
