#pragma once

#include <cerrno>

namespace tessarine {

// The result of a system call, made again when a signal interrupts it; but not for ever, since the
// program must come to an end even where every call is interrupted.
template <class Call>
auto retried(Call call) {
  constexpr int attempts = 100;
  auto result = call();
  for (int attempt = 1; result < 0 && errno == EINTR && attempt < attempts; ++attempt) {
    result = call();
  }
  return result;
}

}  // namespace tessarine
