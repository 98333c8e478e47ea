#include <algorithm>

#include "platform/picture.h"
#include "platform/vips/numbers.h"
#include "platform/vips/preparation.h"

namespace tessarine::preparation {

namespace {

using Bytes = std::span<const std::uint8_t>;

// As many pixels, counted once for each scan, as the largest picture has in this many scans, which
// is more than any encoder makes.
constexpr std::int64_t scansOfTheLargest = 16;

// Past the end of a scan's compressed data: at the next marker that is no restart.
Bytes behindScan(Bytes rest) {
  for (std::size_t at = 0; at + 1 < rest.size(); ++at) {
    if (rest[at] != 0xff) continue;
    const auto next = rest[at + 1];
    const bool isData = next == 0x00 || next == 0xff || (next >= 0xd0 && next <= 0xd7);
    if (!isData) return rest.subspan(at);
  }
  return {};
}

// Markers without a length, and what is no marker at all.
bool standsAlone(std::uint8_t marker) {
  return marker <= 0x01 || (marker >= 0xd0 && marker <= 0xd8);
}

bool isFrame(std::uint8_t marker) {
  // Among the frame headers' numbers stand three markers of other meaning.
  return marker >= 0xc0 && marker <= 0xcf && marker != 0xc4 && marker != 0xc8 && marker != 0xcc;
}

}  // namespace

std::optional<ByteBuffer> ofFewScans(const ByteBuffer& file) {
  constexpr std::uint8_t startOfScan = 0xda;
  constexpr std::uint8_t endOfImage = 0xd9;
  std::int64_t pixels = 0;
  std::int64_t work = 0;
  Bytes rest = file.bytes().subspan(std::min<std::size_t>(2, file.bytes().size()));
  while (rest.size() >= 4) {
    if (rest[0] != 0xff || rest[1] == 0xff) {
      rest = rest.subspan(1);
      continue;
    }
    if (standsAlone(rest[1])) {
      rest = rest.subspan(2);
      continue;
    }
    const auto marker = rest[1];
    if (marker == endOfImage) break;
    if (isFrame(marker) && rest.size() >= 9) {
      pixels = std::int64_t{rest[5] << 8 | rest[6]} * (rest[7] << 8 | rest[8]);
    }
    const std::size_t size = 2 + (std::size_t{rest[2]} << 8 | rest[3]);
    rest = rest.subspan(std::min(size, rest.size()));
    if (marker != startOfScan) continue;
    work += pixels;
    if (work > scansOfTheLargest * maximumPixels) return std::nullopt;
    rest = behindScan(rest);
  }
  return file;
}

}  // namespace tessarine::preparation
