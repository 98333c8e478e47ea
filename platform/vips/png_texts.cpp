#include <algorithm>
#include <string_view>

#include "platform/vips/numbers.h"
#include "platform/vips/preparation.h"

namespace tessarine::preparation {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t markSize = 8;
// Length, type and check sum.
constexpr std::size_t chunkFrame = 12;

bool isCompressedText(Bytes chunk) {
  const std::string_view type(reinterpret_cast<const char*>(chunk.data()) + 4, 4);
  return type == "zTXt" || type == "iTXt";
}

// The next chunk of `rest`, or all of it where no whole chunk follows.
Bytes nextChunk(Bytes rest) {
  if (rest.size() < chunkFrame) return rest;
  const std::size_t size = std::size_t{big32(rest, 0)} + chunkFrame;
  return rest.first(std::min(size, rest.size()));
}

// Hands `take` every chunk but the texts.
template <class Take>
void eachOtherChunk(Bytes file, const Take& take) {
  for (Bytes rest = file.subspan(std::min(markSize, file.size())); !rest.empty();) {
    const Bytes chunk = nextChunk(rest);
    if (chunk.size() < chunkFrame || !isCompressedText(chunk)) take(chunk);
    rest = rest.subspan(chunk.size());
  }
}

}  // namespace

std::optional<ByteBuffer> withoutTexts(const ByteBuffer& file) {
  const Bytes bytes = file.bytes();
  std::size_t kept = std::min(markSize, bytes.size());
  eachOtherChunk(bytes, [&kept](Bytes chunk) { kept += chunk.size(); });
  if (kept == bytes.size()) return file;

  auto block = MemoryBlock::allocate(kept);
  if (!block) return std::nullopt;
  auto to = std::ranges::copy(bytes.first(markSize), block->bytes().begin()).out;
  eachOtherChunk(bytes, [&to](Bytes chunk) { to = std::ranges::copy(chunk, to).out; });
  return ByteBuffer(*std::move(block));
}

}  // namespace tessarine::preparation
