#include "platform/picture.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/refused_new.h"
#include "tests/support/under_valgrind.h"

namespace tessarine {
namespace {

constexpr std::int64_t huge = std::numeric_limits<std::int64_t>::max();

ByteBuffer numbered(std::size_t size) {
  auto block = MemoryBlock::allocate(size).value();
  for (std::size_t i = 0; i < size; ++i) block.bytes()[i] = static_cast<std::uint8_t>(i);
  return ByteBuffer(std::move(block));
}

TEST(Bitmap, TakesFourBytesAPixel) {
  EXPECT_EQ(Bitmap::byteCount({1, 1}), 4U);
  EXPECT_EQ(Bitmap::byteCount({3, 5}), 60U);
}

TEST(Bitmap, CanHaveSoManyPixelsAndNoMore) {
  EXPECT_EQ(Bitmap::byteCount({16383, 16383}), 1'073'610'756U);
  EXPECT_EQ(Bitmap::byteCount({maximumPixels, 1}), 1'073'610'756U);
  EXPECT_EQ(Bitmap::byteCount({1, maximumPixels}), 1'073'610'756U);
  EXPECT_EQ(Bitmap::byteCount({maximumPixels + 1, 1}), std::nullopt);
  EXPECT_EQ(Bitmap::byteCount({16383, 16384}), std::nullopt);
}

TEST(Bitmap, CannotBeMadeOfSidesThatAreNotPositive) {
  for (const PixelSize size : {PixelSize{0, 1}, PixelSize{1, 0}, PixelSize{0, 0}, PixelSize{-1, 1},
                               PixelSize{1, -1}, PixelSize{-1, -1}, PixelSize{-huge - 1, -1}}) {
    EXPECT_EQ(Bitmap::byteCount(size), std::nullopt) << size.width << "x" << size.height;
  }
}

TEST(Bitmap, DoesNotOverflow) {
  for (const PixelSize size : {PixelSize{huge, huge}, PixelSize{huge, 2}, PixelSize{2, huge},
                               PixelSize{std::int64_t{1} << 32, std::int64_t{1} << 32}}) {
    EXPECT_EQ(Bitmap::byteCount(size), std::nullopt) << size.width << "x" << size.height;
  }
}

TEST(Bitmap, GivesItsRowsFromTheTop) {
  const Bitmap bitmap({2, 3}, numbered(24));
  EXPECT_EQ(bitmap.row(0).front(), 0);
  EXPECT_EQ(bitmap.row(2).front(), 16);
  EXPECT_EQ(bitmap.row(2).size(), 8U);
}

TEST(BitmapDeathTest, NeedsExactlyItsBytes) {
  const auto stops = ::testing::KilledBySignal(SIGABRT);
  EXPECT_EXIT(Bitmap({2, 3}, numbered(23)), stops, "^$");
  EXPECT_EXIT(Bitmap({0, 3}, numbered(0)), stops, "^$");
}

TEST(ByteBuffer, SharesItsMemory) {
  const ByteBuffer whole = numbered(10);
  const ByteBuffer copy = whole;
  EXPECT_EQ(copy.bytes().data(), whole.bytes().data());
}

TEST(ByteBuffer, KeepsTheMemoryOfASliceAlive) {
  std::optional<ByteBuffer> whole = numbered(10);
  const ByteBuffer slice = whole->slice(4, 3);
  whole.reset();
  ASSERT_EQ(slice.bytes().size(), 3U);
  EXPECT_EQ(slice.bytes()[0], 4);
  EXPECT_EQ(slice.bytes()[2], 6);
}

TEST(ByteBuffer, CopiesBytes) {
  std::vector<std::uint8_t> bytes{1, 2, 3};
  const ByteBuffer copy = ByteBuffer::copyOf(bytes).value();
  bytes[0] = 9;
  EXPECT_EQ(copy.bytes()[0], 1);
  EXPECT_EQ(ByteBuffer::copyOf({}).value().bytes().size(), 0U);
}

TEST(ByteBuffer, TakesABlockOverWithoutFurtherMemory) {
  if (testing::underValgrind()) GTEST_SKIP() << "valgrind has a `new` of its own";
  auto block = MemoryBlock::allocate(3).value();
  const ByteBuffer buffer = [&] {
    const testing::RefusedNew refused;
    return ByteBuffer(std::move(block));
  }();
  EXPECT_EQ(buffer.bytes().size(), 3U);
  EXPECT_TRUE(block.bytes().empty());
}

TEST(MemoryBlock, IsRefusedRatherThanAborting) {
  EXPECT_FALSE(MemoryBlock::allocate(std::numeric_limits<std::size_t>::max() / 2).has_value());
}

TEST(MemoryBlock, IsRefusedWhenItsBookkeepingIs) {
  if (testing::underValgrind()) GTEST_SKIP() << "valgrind has a `new` of its own";
  const auto block = [] {
    const testing::RefusedNew refused;
    return MemoryBlock::allocate(3);
  }();
  EXPECT_FALSE(block.has_value());
}

TEST(MemoryBlock, IsEmptyOnceItHasBeenMovedFrom) {
  auto block = MemoryBlock::allocate(8).value();
  const MemoryBlock other = std::move(block);
  EXPECT_EQ(other.bytes().size(), 8U);
  EXPECT_TRUE(block.bytes().empty());
  block = MemoryBlock::allocate(3).value();
  EXPECT_EQ(block.bytes().size(), 3U);
}

TEST(MemoryBlock, IsZeroed) {
  const auto block = MemoryBlock::allocate(4096).value();
  for (const std::uint8_t byte : block.bytes()) ASSERT_EQ(byte, 0);
}

}  // namespace
}  // namespace tessarine
