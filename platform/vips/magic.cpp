#include "platform/vips/magic.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

#include "platform/vips/numbers.h"

namespace tessarine::magic {

namespace {

using namespace std::string_view_literals;

std::string_view text(Head head) {
  return {reinterpret_cast<const char*>(head.data()), head.size()};
}

bool has(Head head, std::size_t offset, std::string_view mark) {
  return head.size() >= offset && text(head.subspan(offset)).starts_with(mark);
}

// The brands of an ISO base media file: the major one and the compatible ones.
bool hasBrand(Head head, std::span<const std::string_view> brands) {
  if (!has(head, 4, "ftyp"sv) || head.size() < 16) return false;
  const std::size_t boxSize = std::size_t{head[2]} << 8 | head[3];
  const std::size_t end = std::min(head.size(), boxSize);
  for (std::size_t at = 8; at + 4 <= end; at += at == 8 ? 8 : 4) {
    if (std::ranges::find(brands, text(head.subspan(at, 4))) != brands.end()) return true;
  }
  return false;
}

// What follows the next `mark`; empty where there is none.
std::string_view past(std::string_view mark, std::string_view xml) {
  const auto at = xml.find(mark);
  return at == std::string_view::npos ? std::string_view() : xml.substr(at + mark.size());
}

// Past the comment, instruction or declaration that `xml` begins with. A document type may hold
// others of all three kinds.
std::string_view pastMarkup(std::string_view xml) {
  int open = 0;
  do {
    if (xml.starts_with("<!--"sv)) {
      xml = past("-->"sv, xml.substr(4));
    } else if (xml.starts_with("<?"sv)) {
      xml = past("?>"sv, xml);
    } else {
      const auto letter = xml.substr(0, 1);
      xml.remove_prefix(1);
      if (letter == "\""sv || letter == "'"sv) xml = past(letter, xml);
      if (letter == "<"sv) ++open;
      if (letter == ">"sv) --open;
    }
  } while (open > 0 && !xml.empty());
  return xml;
}

// Past all that may precede an XML document's element.
std::string_view fromFirstElement(std::string_view xml) {
  while (true) {
    const auto at = xml.find_first_not_of(" \t\r\n"sv);
    if (at == std::string_view::npos) return {};
    xml.remove_prefix(at);
    if (!xml.starts_with("<!"sv) && !xml.starts_with("<?"sv)) return xml;
    xml = pastMarkup(xml);
  }
}

}  // namespace

bool png(Head head) {
  return has(head, 0, "\x89PNG\r\n\x1a\n"sv);
}
bool jpeg(Head head) {
  return has(head, 0, "\xff\xd8\xff"sv);
}
bool tiff(Head head) {
  return has(head, 0, "II*\0"sv) || has(head, 0, "MM\0*"sv) || has(head, 0, "II+\0"sv) ||
         has(head, 0, "MM\0+"sv);
}
bool gif(Head head) {
  return has(head, 0, "GIF87a"sv) || has(head, 0, "GIF89a"sv);
}
bool webp(Head head) {
  return has(head, 0, "RIFF"sv) && has(head, 8, "WEBP"sv);
}
bool pdf(Head head) {
  return has(head, 0, "%PDF-"sv);
}
bool jpegXL(Head head) {
  return has(head, 0, "\xff\x0a"sv) || has(head, 0, "\0\0\0\x0cJXL \r\n\x87\n"sv);
}
bool jpeg2000(Head head) {
  return has(head, 0, "\0\0\0\x0cjP  \r\n\x87\n"sv) || has(head, 0, "\xff\x4f\xff\x51"sv);
}
bool ico(Head head) {
  return has(head, 0, "\0\0\1\0"sv);
}
bool icns(Head head) {
  return has(head, 0, "icns"sv);
}
bool psd(Head head) {
  return has(head, 0, "8BPS\0\1"sv);
}
bool svgz(Head head) {
  return has(head, 0, "\x1f\x8b\x08"sv);
}

bool heic(Head head) {
  static constexpr std::array brands{"heic"sv, "heix"sv, "heim"sv, "heis"sv, "hevc"sv, "hevx"sv};
  return hasBrand(head, brands);
}
bool avif(Head head) {
  static constexpr std::array brands{"avif"sv, "avis"sv};
  return hasBrand(head, brands);
}

bool svg(Head head) {
  auto xml = text(head);
  if (xml.starts_with("\xef\xbb\xbf"sv)) xml.remove_prefix(3);
  const auto element = fromFirstElement(xml);
  if (!element.starts_with('<')) return false;
  // The name may carry a prefix, as in "<svg:svg".
  auto name = element.substr(1, element.find_first_of(" \t\r\n/>"sv) - 1);
  if (const auto colon = name.find(':'); colon != std::string_view::npos)
    name.remove_prefix(colon + 1);
  return name == "svg"sv;
}

bool bmp(Head head) {
  if (!has(head, 0, "BM"sv) || head.size() < 18) return false;
  // Two letters are no proof: the size of the header that follows is.
  static constexpr std::array<std::uint8_t, 6> headerSizes{12, 40, 52, 56, 108, 124};
  return std::ranges::find(headerSizes, head[14]) != headerSizes.end() && head[15] == 0 &&
         head[16] == 0 && head[17] == 0;
}

bool tga(Head head) {
  if (head.size() < 18) return false;
  const auto hasMap = head[1];
  const auto type = head[2];
  const auto mapDepth = head[7];
  const auto depth = head[16];
  const bool sized = (head[12] | head[13]) != 0 && (head[14] | head[15]) != 0;
  const bool mapped = type == 1 || type == 9;
  const bool direct = type == 2 || type == 10;
  const bool grey = type == 3 || type == 11;
  const bool depthFits = (mapped && depth == 8) || (grey && (depth == 8 || depth == 16)) ||
                         (direct && (depth == 16 || depth == 24 || depth == 32));
  const bool mapFits = mapped ? hasMap == 1 && (mapDepth == 16 || mapDepth == 24 || mapDepth == 32)
                              : hasMap == 0 && mapDepth == 0;
  const bool descriptorFits = (head[17] & 0xc0) == 0 && (head[17] & 0x0f) <= 8;
  return sized && depthFits && mapFits && descriptorFits;
}

bool looksLikeAnother(Head head) {
  return has(head, 0, "\xab\x01"sv) || has(head, 21, "version: MIL-STD-1840"sv) ||
         has(head, 128, "DICM"sv) || has(head, 2048, "PCD_"sv);
}

PixelSize sizeOfBMP(Head head) {
  if (head.size() < 26) return {};
  if (head[14] == 12) return {little16(head, 18), little16(head, 20)};
  // A negative height means that rows are stored from the top.
  const auto height = static_cast<std::int32_t>(little32(head, 22));
  return {static_cast<std::int32_t>(little32(head, 18)), std::abs(std::int64_t{height})};
}

PixelSize sizeOfPSD(Head head) {
  if (head.size() < 22) return {};
  return {big32(head, 18), big32(head, 14)};
}

PixelSize sizeOfTGA(Head head) {
  return {little16(head, 12), little16(head, 14)};
}

}  // namespace tessarine::magic
