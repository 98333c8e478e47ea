#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "output/png_encoder.h"
#include "output/png_filters.h"

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
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const auto pageBytes = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  malloc_trim(0);
  const rlimit limit{pages * pageBytes + refusal.bytesLeft, RLIM_INFINITY};
  if (setrlimit(RLIMIT_AS, &limit) != 0) std::_Exit(2);
  std::_Exit(encodePNG(bitmap).has_value() == refusal.encodes ? 0 : 1);
}

class PNGEncoderMemory : public ::testing::TestWithParam<Refusal> {};

TEST_P(PNGEncoderMemory, GivesNothingWhenRefused) {
#if defined(TESSARINE_ADDRESS_SANITIZER)
  GTEST_SKIP() << "memory cannot be limited under the address sanitizer";
#endif
  // In a new process, whose heap no other test has grown.
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
