#include <gtest/gtest.h>

#include <cstdlib>

#include "output/png_encoder.h"
#include "output/png_filters.h"
#include "tests/support/memory_limit.h"

namespace tessarine {
namespace {

constexpr PixelSize large{4096, 4096};
const std::size_t filteredBytes = filteredByteCount(large);

struct Refusal {
  const char* name;
  PixelSize size;
  std::size_t bytesLeft;
  bool encodes;
};

// Ends with status 0 when encoding goes as expected with `bytesLeft` of memory.
[[noreturn]] void encodeWithin(const Refusal& refusal) {
  const std::size_t bitmapBytes = Bitmap::byteCount(refusal.size).value();
  const Bitmap bitmap(refusal.size, ByteBuffer(MemoryBlock::allocate(bitmapBytes).value()));
  testing::leaveMemory(refusal.bytesLeft);
  std::_Exit(encodePNG(bitmap).has_value() == refusal.encodes ? 0 : 1);
}

class PNGEncoderMemory : public ::testing::TestWithParam<Refusal> {};

TEST_P(PNGEncoderMemory, GivesNothingWhenRefused) {
  if (!testing::memoryCanBeLimited()) GTEST_SKIP() << "memory cannot be limited";
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(encodeWithin(GetParam()), ::testing::ExitedWithCode(0), "");
}

// The compressor takes some hundred kilobytes, a small bitmap's blocks less than one.
INSTANTIATE_TEST_SUITE_P(Steps, PNGEncoderMemory,
                         ::testing::Values(Refusal{"Compressor", {8, 8}, 64 << 10, false},
                                           Refusal{"FilteredRows", large, filteredBytes / 2, false},
                                           Refusal{"File", large, filteredBytes + filteredBytes / 2,
                                                   false},
                                           Refusal{"Nothing", large, 3 * filteredBytes, true}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tessarine
