#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/resource.h>

#include <cstdlib>
#include <fstream>

#include "output/resampler.h"
#include "tests/output/resampler_reference.h"

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

enum class Outcome { nothing, noBitmap, bitmap };

struct Refusal {
  const char* name;
  PixelSize size;
  std::size_t bytesLeft;
  Outcome outcome;
};

Outcome outcomeOf(const std::optional<Picture>& picture) {
  if (!picture) return Outcome::nothing;
  return picture->bitmap ? Outcome::bitmap : Outcome::noBitmap;
}

// Ends with status 0 when scaling goes as expected with `bytesLeft` of memory.
[[noreturn]] void resizeWithin(const Refusal& refusal) {
  const Picture source = testing::drawnPicture({1500, 1500}, testing::opaqueNoise());
  // What the allocator holds back must not help.
  malloc_trim(0);
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const rlimit limit{pages * 4096 + refusal.bytesLeft, RLIM_INFINITY};
  if (setrlimit(RLIMIT_AS, &limit) != 0) std::_Exit(2);
  const auto result = resizedImage(source, refusal.size.width, refusal.size.height);
  std::_Exit(outcomeOf(result) == refusal.outcome ? 0 : 1);
}

class ResamplerMemory : public ::testing::TestWithParam<Refusal> {};

TEST_P(ResamplerMemory, IsRefusedWithoutHarm) {
#if defined(TESSARINE_ADDRESS_SANITIZER)
  GTEST_SKIP() << "memory cannot be limited under the address sanitizer";
#endif
  // In a process of its own, where no earlier test has left free memory behind.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(resizeWithin(GetParam()), ::testing::ExitedWithCode(0), "");
}

constexpr std::size_t megabyte = 1 << 20;
constexpr PixelSize large{4000, 1400};

INSTANTIATE_TEST_SUITE_P(
    Steps, ResamplerMemory,
    ::testing::Values(Refusal{"Bitmap", large, 10 * megabyte, Outcome::noBitmap},
                      Refusal{"WorkingMemory", large, 22'400'000 + megabyte / 16, Outcome::nothing},
                      Refusal{"Nothing", large, 80 * megabyte, Outcome::bitmap}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tessarine
