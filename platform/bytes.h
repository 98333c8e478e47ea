#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>

namespace tessarine {

// Memory whose size a picture or a file decides, so that it may be refused without ending the
// program. Owned by one holder; freed with it, unless a ByteBuffer takes it over.
class MemoryBlock {
 public:
  // `size` zeroed bytes, or nothing when the system does not give them.
  static std::optional<MemoryBlock> allocate(std::size_t size) noexcept;

  // A block that has been moved from is empty.
  MemoryBlock(MemoryBlock&& other) noexcept
      : memory_(std::move(other.memory_)), size_(std::exchange(other.size_, 0)) {}
  MemoryBlock& operator=(MemoryBlock&& other) noexcept {
    memory_ = std::move(other.memory_);
    size_ = std::exchange(other.size_, 0);
    return *this;
  }

  std::span<std::uint8_t> bytes() noexcept { return {memory_.get(), size_}; }
  std::span<const std::uint8_t> bytes() const noexcept { return {memory_.get(), size_}; }

 private:
  friend class ByteBuffer;
  MemoryBlock(std::shared_ptr<std::uint8_t[]> memory, std::size_t size) noexcept
      : memory_(std::move(memory)), size_(size) {}

  // Shared already here, so that a buffer made of it cannot be refused.
  std::shared_ptr<std::uint8_t[]> memory_;
  std::size_t size_;
};

// Bytes that never change and are shared: a copy refers to the same memory and keeps it alive.
class ByteBuffer {
 public:
  explicit ByteBuffer(MemoryBlock block) noexcept : ByteBuffer(block.bytes(), block.memory_) {}
  // A view that keeps `owner`, which must hold the bytes, alive.
  ByteBuffer(std::span<const std::uint8_t> bytes, std::shared_ptr<const void> owner) noexcept
      : owner_(std::move(owner)), bytes_(bytes) {}

  // Nothing when memory does not suffice for the copy.
  static std::optional<ByteBuffer> copyOf(std::span<const std::uint8_t> bytes);

  std::span<const std::uint8_t> bytes() const noexcept { return bytes_; }
  // `count` bytes from `offset` on, which must lie inside; shares the memory.
  ByteBuffer slice(std::size_t offset, std::size_t count) const {
    return {bytes_.subspan(offset, count), owner_};
  }

 private:
  std::shared_ptr<const void> owner_;
  std::span<const std::uint8_t> bytes_;
};

}  // namespace tessarine
