#include "platform/bytes.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

#ifdef __linux__
#include <sys/mman.h>

#include <memory>
#endif

namespace tessarine {

namespace {

struct Free {
  void operator()(std::uint8_t* memory) const noexcept { std::free(memory); }
};

// Large blocks would otherwise be given page by page of 4 kB, each by an interruption.
void preferLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) {
#ifdef __linux__
  constexpr std::size_t largePage = std::size_t{2} << 20;
  if (size < 2 * largePage) return;
  // Merely advice: where it is not taken, nothing is lost.
  if (std::align(largePage, largePage, memory, size) != nullptr) {
    ::madvise(memory, size / largePage * largePage, MADV_HUGEPAGE);
  }
#endif
}

}  // namespace

std::optional<MemoryBlock> MemoryBlock::allocate(std::size_t size) noexcept try {
  // calloc(0) may answer with a null pointer that is no refusal.
  auto* memory = static_cast<std::uint8_t*>(std::calloc(std::max<std::size_t>(size, 1), 1));
  if (memory == nullptr) return std::nullopt;
  preferLargePages(memory, size);
  return MemoryBlock({memory, Free()}, size);
} catch (const std::bad_alloc&) {
  return std::nullopt;
}

std::optional<ByteBuffer> ByteBuffer::copyOf(std::span<const std::uint8_t> bytes) {
  auto block = MemoryBlock::allocate(bytes.size());
  if (!block) return std::nullopt;
  std::ranges::copy(bytes, block->bytes().begin());
  return ByteBuffer(*std::move(block));
}

}  // namespace tessarine
