#include "platform/posix/granted_files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <system_error>
#include <utility>

#include "platform/posix/one_line.h"
#include "platform/posix/replacement.h"
#include "platform/posix/retried.h"
#include "platform/posix/write_whole.h"

namespace tessarine {

namespace {

std::string cause(int error) {
  switch (error) {
    case EXDEV:
      return "not permitted outside the chosen folder";
    case ENXIO:
      return "not a plain file";
    default:
      return std::generic_category().message(error);
  }
}

std::optional<std::string> description(const std::string& path, int error) {
  if (error == 0) return std::nullopt;
  return "\"" + oneLine(path) + "\" could not be written: " + cause(error);
}

}  // namespace

void GrantedFiles::grant(const std::string& folder) {
  revoke();
  if (folder.find('\0') != std::string::npos) return;
  folderPath_ = folder;
  folder_ =
      Descriptor(retried([&] { return ::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
  if (!folder_) refusal_ = errno;
}

void GrantedFiles::revoke() {
  folder_ = Descriptor();
  refusal_ = EXDEV;
}

GrantedFiles::Place GrantedFiles::placeOf(const std::string& path) const {
  if (!folder_) return {{}, refusal_};
  if (!path.starts_with(folderPath_ + "/")) return {{}, EXDEV};
  // The system would take a path up to its first NUL, which is another file's.
  if (path.find('\0') != std::string::npos) return {{}, EINVAL};
  const auto begin = path.find_first_not_of('/', folderPath_.size());
  return {begin == std::string::npos ? "." : path.substr(begin), 0};
}

std::optional<std::string> GrantedFiles::writeInPlace(const std::string& path,
                                                      std::span<const std::uint8_t> bytes) {
  const Place place = placeOf(path);
  return description(path, place.error != 0 ? place.error : overwrite(place.path, bytes));
}

std::optional<std::string> GrantedFiles::writeAtomically(const std::string& path,
                                                         std::span<const std::uint8_t> bytes) {
  const Place place = placeOf(path);
  return description(path, place.error != 0 ? place.error : replace(place.path, bytes));
}

int GrantedFiles::overwrite(const std::string& path, std::span<const std::uint8_t> bytes) const {
  // Nothing is truncated before it is known to be a plain file, and O_NONBLOCK keeps a FIFO or a
  // device from holding up the program.
  const int flags = O_WRONLY | O_CREAT | O_NONBLOCK | O_NOCTTY;
  Opened opened = openBeneath(folder_, path, flags, 0666, resolution_);
  if (opened.error != 0) return opened.error;
  Descriptor& file = opened.file;
  struct stat status;
  if (::fstat(file.number(), &status) != 0) return errno;
  if (!S_ISREG(status.st_mode)) return ENXIO;
  if (status.st_size > 0 && retried([&] { return ::ftruncate(file.number(), 0); }) != 0) {
    return errno;
  }
  const int writing = writeWhole(file.number(), bytes);
  const int closing = file.close();
  return writing != 0 ? writing : closing;
}

int GrantedFiles::replace(const std::string& path, std::span<const std::uint8_t> bytes) const {
  const auto separator = path.rfind('/');
  const bool nested = separator != std::string::npos;
  const std::string parentPath = nested ? path.substr(0, separator) : ".";
  const std::string name = nested ? path.substr(separator + 1) : path;

  const Opened parent = openBeneath(folder_, parentPath, O_PATH | O_DIRECTORY, 0, resolution_);
  if (parent.error != 0) return parent.error;
  const Opened old = openBeneath(folder_, path, O_PATH, 0, resolution_);
  if (old.error == ENOENT) return replaceFile(parent.file, name, bytes, std::nullopt);
  if (old.error != 0) return old.error;
  struct stat status;
  if (::fstat(old.file.number(), &status) != 0) return errno;
  if (S_ISDIR(status.st_mode)) return EISDIR;
  if (!S_ISREG(status.st_mode)) return ENXIO;
  return replaceFile(parent.file, name, bytes, status.st_mode & 0777);
}

}  // namespace tessarine
