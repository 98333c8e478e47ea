#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <span>
#include <vector>

#include "platform/vips/decoder.h"
#include "platform/vips/held_tiff.h"
#include "tests/platform/vips/drawn_pictures.h"

namespace tessarine {
namespace {

constexpr PixelSize size{5, 3};
constexpr std::size_t directoryOffsetPlace = 4;

std::vector<std::uint8_t> heldBytes() {
  const auto held = required(writeHeldTIFF(testing::drawVaried(size)));
  return {held.bytes().begin(), held.bytes().end()};
}

std::optional<Bitmap> view(std::span<const std::uint8_t> bytes) {
  return viewHeldTIFF(required(ByteBuffer::copyOf(bytes)));
}

TEST(HeldTIFFView, SeesWhatWasWritten) {
  EXPECT_TRUE(view(heldBytes()));
}

TEST(HeldTIFFView, RefusesEveryTruncation) {
  const auto whole = heldBytes();
  for (std::size_t count = 0; count < whole.size(); ++count) {
    EXPECT_FALSE(view(std::span(whole).first(count))) << count;
  }
}

// A change of the pixels is another picture. Any other change must be refused or leave a bitmap
// whose pixels lie inside the bytes, which the sanitizers watch.
TEST(HeldTIFFView, StaysInsideWhateverByteIsChanged) {
  const auto whole = heldBytes();
  int refused = 0;
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (const int change : {0x01, 0x80, 0xff}) {
      auto changed = whole;
      changed[at] = static_cast<std::uint8_t>(changed[at] ^ change);
      const auto bitmap = view(changed);
      refused += bitmap ? 0 : 1;
      if (!bitmap) continue;
      EXPECT_EQ(bitmap->pixels().size(), Bitmap::byteCount(bitmap->size()));
      std::uint64_t sum = 0;
      for (const auto sample : bitmap->pixels()) sum += sample;
      EXPECT_LE(sum, bitmap->pixels().size() * 255);
    }
  }
  EXPECT_GT(refused, 0);
}

struct Damage {
  const char* name;
  std::uint32_t tag;
  std::uint32_t value;
};

class DamagedTag : public ::testing::TestWithParam<Damage> {};

TEST_P(DamagedTag, IsRefused) {
  auto bytes = heldBytes();
  const auto number = [&bytes](std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    while (count-- > 0) value = value << 8 | bytes[at + count];
    return value;
  };
  const std::size_t directory = number(directoryOffsetPlace, 4);
  const std::size_t fields = number(directory, 2);
  bool found = false;
  for (std::size_t field = 0; field < fields; ++field) {
    const auto entry = directory + 2 + field * 12;
    if (number(entry, 2) != GetParam().tag) continue;
    found = true;
    bytes[entry + 2] = 4;  // a number of 32 bits
    for (std::size_t i = 0; i < 4; ++i) {
      bytes[entry + 8 + i] = static_cast<std::uint8_t>(GetParam().value >> (8 * i));
    }
  }
  ASSERT_TRUE(found);
  EXPECT_FALSE(view(bytes));
}

INSTANTIATE_TEST_SUITE_P(
    Fields, DamagedTag,
    ::testing::Values(Damage{"NoWidth", 256, 0}, Damage{"OtherWidth", 256, 4},
                      Damage{"HugeWidth", 256, 0xffffffff}, Damage{"NoHeight", 257, 0},
                      Damage{"HugeHeight", 257, 0x80000000}, Damage{"Compressed", 259, 5},
                      Damage{"NotRGB", 262, 6}, Damage{"StripBeyondTheEnd", 273, 0xfffffff0},
                      Damage{"StripReachesOverTheEnd", 273, 300}, Damage{"Turned", 274, 6},
                      Damage{"ThreeSamples", 277, 3}, Damage{"ManyStrips", 278, 1},
                      Damage{"ShortStrip", 279, 59}, Damage{"LongStrip", 279, 61},
                      Damage{"Planar", 284, 2}, Damage{"AssociatedAlpha", 338, 1}),
    [](const auto& row) { return row.param.name; });

TEST(HeldTIFFView, RefusesASecondDirectory) {
  auto bytes = heldBytes();
  const std::size_t directory = bytes[directoryOffsetPlace];
  const std::size_t next = directory + 2 + std::size_t{bytes[directory]} * 12;
  bytes[next] = 8;
  EXPECT_FALSE(view(bytes));
}

TEST(HeldTIFFView, RefusesADirectoryBeyondTheEnd) {
  auto bytes = heldBytes();
  for (std::size_t i = 0; i < 4; ++i) bytes[directoryOffsetPlace + i] = 0xff;
  EXPECT_FALSE(view(bytes));
}

}  // namespace
}  // namespace tessarine
