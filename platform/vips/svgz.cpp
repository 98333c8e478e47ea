#include <libdeflate.h>

#include <algorithm>
#include <memory>

#include "platform/vips/magic.h"
#include "platform/vips/numbers.h"
#include "platform/vips/preparation.h"

namespace tessarine::preparation {

namespace {

struct FreeDecompressor {
  void operator()(libdeflate_decompressor* decompressor) const noexcept {
    libdeflate_free_decompressor(decompressor);
  }
};

}  // namespace

std::optional<ByteBuffer> inflatedSVG(const ByteBuffer& file) {
  const auto bytes = file.bytes();
  if (bytes.size() < 4) return std::nullopt;
  // A gzip file ends with the size of what it holds. One that lies about it does not fit.
  const std::size_t size = little32(bytes, bytes.size() - 4);
  if (size > maximumDrawingBytes) return std::nullopt;
  auto block = MemoryBlock::allocate(size);
  const std::unique_ptr<libdeflate_decompressor, FreeDecompressor> decompressor(
      libdeflate_alloc_decompressor());
  if (!block || decompressor == nullptr) return std::nullopt;
  if (libdeflate_gzip_decompress(decompressor.get(), bytes.data(), bytes.size(),
                                 block->bytes().data(), size, nullptr) != LIBDEFLATE_SUCCESS) {
    return std::nullopt;
  }
  // The library would inflate another gzip file inside without any limit.
  if (!magic::svg(block->bytes().first(std::min(size, headSize)))) return std::nullopt;
  return ByteBuffer(*std::move(block));
}

}  // namespace tessarine::preparation
