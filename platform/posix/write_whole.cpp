#include "platform/posix/write_whole.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

#include "platform/posix/retried.h"

namespace tessarine {

namespace {

// As `write`, but waits for room where somebody has made the descriptor non-blocking; not for ever
// where there is room and yet nothing is taken.
ssize_t writeSome(int descriptor, std::span<const std::uint8_t> bytes) {
  constexpr int attempts = 100;
  for (int attempt = 1;; ++attempt) {
    const auto written = retried([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
    if (written >= 0 || errno != EAGAIN || attempt == attempts) return written;
    pollfd waiting{descriptor, POLLOUT, 0};
    retried([&] { return ::poll(&waiting, 1, -1); });
  }
}

}  // namespace

int writeWhole(int descriptor, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const auto written = writeSome(descriptor, bytes);
    if (written < 0) return errno;
    // No progress and no error: trying again could go on for ever.
    if (written == 0) return EIO;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return 0;
}

}  // namespace tessarine
