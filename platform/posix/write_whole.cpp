#include "platform/posix/write_whole.h"

#include <unistd.h>

#include <cerrno>
#include <cstddef>

#include "platform/posix/retried.h"

namespace tessarine {

int writeWhole(int descriptor, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const auto written = retried([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
    if (written < 0) return errno;
    // No progress and no error: trying again could go on for ever.
    if (written == 0) return EIO;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return 0;
}

}  // namespace tessarine
