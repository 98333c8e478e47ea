#include "platform/bytes.h"

#include <algorithm>
#include <utility>

namespace tessarine {

std::optional<MemoryBlock> MemoryBlock::allocate(std::size_t size) noexcept {
  // calloc(0) may answer with a null pointer that is no refusal.
  auto* memory = static_cast<std::uint8_t*>(std::calloc(std::max<std::size_t>(size, 1), 1));
  if (memory == nullptr) return std::nullopt;
  return MemoryBlock(memory, size);
}

ByteBuffer::ByteBuffer(MemoryBlock block) {
  auto owner = std::make_shared<MemoryBlock>(std::move(block));
  bytes_ = owner->bytes();
  owner_ = std::move(owner);
}

std::optional<ByteBuffer> ByteBuffer::copyOf(std::span<const std::uint8_t> bytes) {
  auto block = MemoryBlock::allocate(bytes.size());
  if (!block) return std::nullopt;
  std::ranges::copy(bytes, block->bytes().begin());
  return ByteBuffer(*std::move(block));
}

}  // namespace tessarine
