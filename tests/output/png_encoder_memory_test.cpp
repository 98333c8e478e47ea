#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdlib>
#include <fstream>

#include "output/png_encoder.h"
#include "tests/output/drawn_bitmaps.h"

// The address sanitizer takes the address space for itself.
#if defined(__SANITIZE_ADDRESS__)
#define TESSARINE_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TESSARINE_ADDRESS_SANITIZER 1
#endif
#endif

namespace tessarine {
namespace {

constexpr PixelSize size{4096, 4096};
constexpr std::size_t bitmapBytes = 4096 * 4096 * 4;

struct Refusal {
  const char* name;
  std::size_t bytesLeft;
  bool encodes;
};

// Ends with status 0 when encoding goes as expected with `bytesLeft` of memory.
[[noreturn]] void encodeWithin(const Refusal& refusal) {
  const Bitmap bitmap(size, ByteBuffer(MemoryBlock::allocate(bitmapBytes).value()));
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const rlimit limit{pages * 4096 + refusal.bytesLeft, RLIM_INFINITY};
  if (setrlimit(RLIMIT_AS, &limit) != 0) std::_Exit(2);
  std::_Exit(encodePNG(bitmap).has_value() == refusal.encodes ? 0 : 1);
}

class PNGEncoderMemory : public ::testing::TestWithParam<Refusal> {};

TEST_P(PNGEncoderMemory, GivesNothingWhenRefused) {
#if defined(TESSARINE_ADDRESS_SANITIZER)
  GTEST_SKIP() << "memory cannot be limited under the address sanitizer";
#endif
  EXPECT_EXIT(encodeWithin(GetParam()), ::testing::ExitedWithCode(0), "");
}

INSTANTIATE_TEST_SUITE_P(Steps, PNGEncoderMemory,
                         ::testing::Values(Refusal{"Compressor", 1 << 10, false},
                                           Refusal{"FilteredRows", bitmapBytes / 2, false},
                                           Refusal{"File", bitmapBytes + bitmapBytes / 2, false},
                                           Refusal{"Nothing", 3 * bitmapBytes, true}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tessarine
