#pragma once

#include <cstddef>
#include <vector>

namespace tessarine {

// Working memory of numbers, zeroed, that starts on a cache line. Throws std::bad_alloc.
template <class T>
class Scratch {
 public:
  Scratch() = default;
  explicit Scratch(std::size_t count) : lines_((count + lineLength - 1) / lineLength) {}

  T* data() noexcept { return lines_.data()->values; }
  const T* data() const noexcept { return lines_.data()->values; }

 private:
  static constexpr std::size_t lineBytes = 64;
  static constexpr std::size_t lineLength = lineBytes / sizeof(T);
  struct alignas(lineBytes) Line {
    T values[lineLength];
  };

  std::vector<Line> lines_;
};

}  // namespace tessarine
