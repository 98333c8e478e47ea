#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

#include "platform/fatal_stop.h"
#include "platform/picture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace tessarine::fuzzing {

// What must hold whatever the bytes are.
inline void expect(bool law) {
  if (!law) std::abort();
}

inline std::string_view textOf(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Numbers and samples taken off the front of the input; zeroes once it is used up.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

  std::uint8_t byte() {
    if (rest_.empty()) return 0;
    const std::uint8_t value = rest_.front();
    rest_ = rest_.subspan(1);
    return value;
  }
  int number() {
    const int high = byte();
    return high << 8 | byte();
  }
  // The rest, again and again, as the pixels.
  Bitmap bitmap(PixelSize size) {
    auto block = required(MemoryBlock::allocate(required(Bitmap::byteCount(size))));
    std::size_t at = 0;
    for (auto& sample : block.bytes()) sample = rest_.empty() ? 0 : rest_[at++ % rest_.size()];
    return Bitmap(size, ByteBuffer(std::move(block)));
  }

 private:
  std::span<const std::uint8_t> rest_;
};

}  // namespace tessarine::fuzzing
