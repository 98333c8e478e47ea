#include "platform/vips/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace tessarine {

namespace {

// How many bytes arrived in `room`, from the start of the file on; nothing when reading fails.
std::optional<std::size_t> readFromStart(int descriptor, std::span<std::uint8_t> room) {
  std::size_t count = 0;
  while (count < room.size()) {
    const auto got =
        ::pread(descriptor, room.data() + count, room.size() - count, static_cast<off_t>(count));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::nullopt;
    if (got == 0) break;
    count += static_cast<std::size_t>(got);
  }
  return count;
}

}  // namespace

RegularFile::RegularFile(const std::string& path) {
  if (path.find('\0') != std::string::npos) {
    // The system would open what stands before the null byte.
    refusal_ = std::strerror(ENOENT);
    return;
  }
  // Without O_NONBLOCK, opening a pipe that nobody writes to would wait for ever.
  descriptor_ = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  check();
}

RegularFile::RegularFile(int descriptor) : descriptor_(descriptor) {
  check();
}

void RegularFile::check() {
  struct stat status {};
  if (descriptor_ < 0 || ::fstat(descriptor_, &status) != 0) {
    // A socket cannot be opened at all.
    refusal_ = errno == ENXIO ? "not a regular file" : std::strerror(errno);
  } else if (S_ISDIR(status.st_mode)) {
    refusal_ = std::strerror(EISDIR);
  } else if (!S_ISREG(status.st_mode)) {
    refusal_ = "not a regular file";
  } else if (status.st_size == 0) {
    refusal_ = "the file is empty";
  } else if (status.st_size > maximumFileBytes) {
    refusal_ = "the file is larger than 1 GiB";
  }
  size_ = status.st_size;
}

RegularFile::~RegularFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

std::span<const std::uint8_t> RegularFile::head(std::span<std::uint8_t> room) const {
  return room.first(readFromStart(descriptor_, room).value_or(0));
}

std::optional<ByteBuffer> RegularFile::bytes() const {
  auto block = MemoryBlock::allocate(static_cast<std::size_t>(size_));
  if (!block) return std::nullopt;
  // The file may have shrunk meanwhile.
  const auto count = readFromStart(descriptor_, block->bytes());
  if (!count) return std::nullopt;
  return ByteBuffer(*std::move(block)).slice(0, *count);
}

}  // namespace tessarine
