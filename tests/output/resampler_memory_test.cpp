#include <gtest/gtest.h>

#include <cstdlib>

#include "output/resampler.h"
#include "tests/output/resampler_reference.h"
#include "tests/support/memory_limit.h"

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
  testing::leaveMemory(refusal.bytesLeft);
  const auto result = resizedImage(source, refusal.size.width, refusal.size.height);
  std::_Exit(outcomeOf(result) == refusal.outcome ? 0 : 1);
}

class ResamplerMemory : public ::testing::TestWithParam<Refusal> {};

TEST_P(ResamplerMemory, IsRefusedWithoutHarm) {
  if (!testing::memoryCanBeLimited()) GTEST_SKIP() << "memory cannot be limited";
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
