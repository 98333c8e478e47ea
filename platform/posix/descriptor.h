#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace tessarine {

// A file descriptor, closed with its holder.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() { close(); }

  explicit operator bool() const { return number_ >= 0; }
  int number() const { return number_; }

  // The error that the system reports for what was written, or 0.
  int close() {
    if (number_ < 0) return 0;
    // The descriptor is gone even when the call was interrupted, so it is never tried again.
    return ::close(std::exchange(number_, -1)) == 0 || errno == EINTR ? 0 : errno;
  }

 private:
  int number_ = -1;
};

}  // namespace tessarine
