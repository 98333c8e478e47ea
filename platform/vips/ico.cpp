#include <algorithm>
#include <array>
#include <tuple>

#include "platform/vips/magic.h"
#include "platform/vips/numbers.h"
#include "platform/vips/preparation.h"

namespace tessarine::preparation {

namespace {

constexpr std::size_t directorySize = 6;
constexpr std::size_t entrySize = 16;
// No icon is larger; a bitmap inside that says otherwise is not believed.
constexpr std::uint32_t maximumSide = 1024;

struct Entry {
  std::uint32_t area, bitsPerPixel;
  std::span<const std::uint8_t> directory;  // its 16 bytes
  std::span<const std::uint8_t> picture;

  auto rank() const { return std::tuple(area, bitsPerPixel, picture.size()); }
};

std::uint32_t side(std::uint8_t stored) {
  return stored == 0 ? 256 : stored;
}

std::optional<Entry> entryAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  const auto directory = bytes.subspan(at, entrySize);
  const std::size_t count = little32(directory, 8);
  const std::size_t offset = little32(directory, 12);
  if (offset > bytes.size() || bytes.size() - offset < count) return std::nullopt;
  return Entry{side(directory[0]) * side(directory[1]), little16(directory, 6), directory,
               bytes.subspan(offset, count)};
}

// The header of a Windows bitmap, whose height counts the picture and its mask.
bool isSmallBitmap(std::span<const std::uint8_t> picture) {
  if (picture.size() < 40 || little32(picture, 0) != 40) return false;
  const auto width = little32(picture, 4);
  const auto height = little32(picture, 8);
  return width > 0 && width <= maximumSide && height > 0 && height <= 2 * maximumSide;
}

std::optional<ByteBuffer> iconOfOne(const Entry& entry) {
  auto block = MemoryBlock::allocate(directorySize + entrySize + entry.picture.size());
  if (!block) return std::nullopt;
  static constexpr std::array<std::uint8_t, directorySize> oneIcon{0, 0, 1, 0, 1, 0};
  auto to = std::ranges::copy(oneIcon, block->bytes().begin()).out;
  to = std::ranges::copy(entry.directory, to).out;
  static constexpr std::array<std::uint8_t, 4> offset{directorySize + entrySize, 0, 0, 0};
  std::ranges::copy(offset, to - static_cast<std::ptrdiff_t>(offset.size()));
  std::ranges::copy(entry.picture, to);
  return ByteBuffer(*std::move(block));
}

}  // namespace

std::optional<ByteBuffer> largestOfICO(const ByteBuffer& file) {
  const auto bytes = file.bytes();
  if (bytes.size() < directorySize) return std::nullopt;
  std::optional<Entry> best;
  const std::size_t count = little16(bytes, 4);
  for (std::size_t i = 0; i < count; ++i) {
    const auto at = directorySize + i * entrySize;
    if (bytes.size() - at < entrySize) break;
    const auto entry = entryAt(bytes, at);
    if (!entry || (!magic::png(entry->picture) && !isSmallBitmap(entry->picture))) continue;
    if (!best || entry->rank() > best->rank()) best = entry;
  }
  if (!best) return std::nullopt;
  if (magic::png(best->picture)) {
    const auto offset = static_cast<std::size_t>(best->picture.data() - bytes.data());
    return file.slice(offset, best->picture.size());
  }
  return iconOfOne(*best);
}

}  // namespace tessarine::preparation
