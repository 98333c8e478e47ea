#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/vips/held_tiff.h"
#include "platform/vips/numbers.h"

namespace tessarine {

namespace {

constexpr std::uint32_t typeShort = 3;
constexpr std::uint32_t typeLong = 4;

struct Entry {
  std::uint32_t tag, type, count;
  std::uint32_t value;  // of a single number
  std::uint32_t place;  // of several
};

constexpr std::size_t entrySize = 12;

Entry entryAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  const auto type = little16(bytes, at + 2);
  const auto place = little32(bytes, at + 8);
  return {little16(bytes, at), type, little32(bytes, at + 4),
          type == typeShort ? little16(bytes, at + 8) : place, place};
}

// The fields of our directory, in the order of their tags.
enum Field {
  width,
  height,
  bitsPerSample,
  compression,
  photometric,
  stripOffset,
  orientation,
  samplesPerPixel,
  rowsPerStrip,
  stripByteCount,
  xResolution,
  yResolution,
  planarConfiguration,
  resolutionUnit,
  extraSamples,
  fieldCount
};
constexpr std::array<std::uint32_t, fieldCount> tags{256, 257, 258, 259, 262, 273, 274, 277,
                                                     278, 279, 282, 283, 284, 296, 338};
using Directory = std::array<Entry, fieldCount>;

// The only directory of the file, when it has our fields and no others.
std::optional<Directory> readDirectory(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t directorySize = 2 + fieldCount * entrySize + 4;
  static constexpr std::array<std::uint8_t, 4> mark{'I', 'I', 42, 0};
  if (bytes.size() < 8 || !std::ranges::equal(bytes.first(4), mark)) return std::nullopt;
  const std::size_t at = little32(bytes, 4);
  if (at > bytes.size() || bytes.size() - at < directorySize) return std::nullopt;
  if (little16(bytes, at) != fieldCount || little32(bytes, at + directorySize - 4) != 0)
    return std::nullopt;
  Directory directory;
  for (std::size_t field = 0; field < fieldCount; ++field) {
    directory[field] = entryAt(bytes, at + 2 + field * entrySize);
    if (directory[field].tag != tags[field]) return std::nullopt;
  }
  return directory;
}

bool isNumber(const Entry& entry) {
  return (entry.type == typeShort || entry.type == typeLong) && entry.count == 1;
}

bool holds(const Entry& entry, std::uint32_t value) {
  return isNumber(entry) && entry.value == value;
}

bool isEightBits(std::span<const std::uint8_t> bytes, const Entry& entry) {
  static constexpr std::array<std::uint8_t, 8> eights{8, 0, 8, 0, 8, 0, 8, 0};
  if (entry.type != typeShort || entry.count != Bitmap::bytesPerPixel) return false;
  // Of a field of several numbers the directory holds the place only.
  const std::size_t at = entry.place;
  if (at > bytes.size() || bytes.size() - at < eights.size()) return false;
  return std::ranges::equal(bytes.subspan(at, eights.size()), eights);
}

}  // namespace

std::optional<Bitmap> viewHeldTIFF(const ByteBuffer& held) {
  const auto bytes = held.bytes();
  const auto directory = readDirectory(bytes);
  if (!directory) return std::nullopt;
  const Directory& fields = *directory;
  const bool laidOutAsWritten =
      isNumber(fields[width]) && isNumber(fields[height]) && isNumber(fields[stripOffset]) &&
      isEightBits(bytes, fields[bitsPerSample]) && holds(fields[compression], 1) &&
      holds(fields[photometric], 2) && holds(fields[orientation], 1) &&
      holds(fields[samplesPerPixel], 4) && holds(fields[rowsPerStrip], fields[height].value) &&
      holds(fields[planarConfiguration], 1) && holds(fields[extraSamples], 2);
  if (!laidOutAsWritten) return std::nullopt;

  const PixelSize size{fields[width].value, fields[height].value};
  const auto byteCount = Bitmap::byteCount(size);
  const std::size_t offset = fields[stripOffset].value;
  if (!byteCount || !isNumber(fields[stripByteCount]) ||
      fields[stripByteCount].value != *byteCount || offset > bytes.size() ||
      bytes.size() - offset < *byteCount) {
    return std::nullopt;
  }
  return Bitmap(size, held.slice(offset, *byteCount));
}

}  // namespace tessarine
