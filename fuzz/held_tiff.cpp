#include "platform/vips/held_tiff.h"

#include <algorithm>

#include "fuzz/fuzzing.h"

using namespace tessarine;

// A bitmap that is seen in any bytes lies inside them, and survives being written and seen again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto bytes = ByteBuffer::copyOf({data, size});
  const auto bitmap = viewHeldTIFF(required(bytes));
  if (!bitmap) return 0;
  const auto pixels = bitmap->pixels();
  fuzzing::expect(pixels.size() <= size);
  const auto again = writeHeldTIFF(*bitmap);
  const auto seen = viewHeldTIFF(required(again));
  fuzzing::expect(seen && seen->size() == bitmap->size() &&
                  std::ranges::equal(seen->pixels(), pixels));
  return 0;
}
