#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "platform/vips/held_tiff.h"
#include "platform/vips/magic.h"
#include "platform/vips/numbers.h"
#include "platform/vips/preparation.h"

namespace tessarine::preparation {

namespace {

constexpr std::size_t headerSize = 8;

using Elements = std::map<std::string_view, std::span<const std::uint8_t>>;

// A type's pixels are PNG or JPEG 2000, or runs of single samples.
struct Type {
  std::string_view name;
  std::int64_t side;
  // Of colours kept in runs: the element that holds the alpha, a byte a pixel.
  std::string_view mask = {};
};

// From the largest on.
constexpr std::array<Type, 20> types{
    {{"ic10", 1024}, {"ic09", 512},         {"ic14", 512}, {"ic08", 256}, {"ic13", 256},
     {"ic07", 128},  {"it32", 128, "t8mk"}, {"ic12", 64},  {"icp6", 64},  {"ih32", 48, "h8mk"},
     {"icsB", 36},   {"icp5", 32},          {"ic11", 32},  {"ic05", 32},  {"il32", 32, "l8mk"},
     {"sb24", 24},   {"icsb", 18},          {"icp4", 16},  {"ic04", 16},  {"is32", 16, "s8mk"}}};

// Writes the samples of the runs to every fourth byte of `to`, and takes the runs off `from`.
bool expandRuns(std::span<const std::uint8_t>& from, std::span<std::uint8_t> to) {
  std::size_t at = 0;
  while (at < to.size()) {
    if (from.size() < 2) return false;
    const bool repeats = from[0] >= 128;
    const std::size_t count = repeats ? from[0] - 125U : from[0] + 1U;
    if (!repeats && from.size() < 1 + count) return false;
    for (std::size_t i = 0; i < count && at < to.size(); ++i, at += Bitmap::bytesPerPixel) {
      to[at] = from[repeats ? 1 : 1 + i];
    }
    from = from.subspan(repeats ? 2 : 1 + count);
  }
  return true;
}

// The samples in the order in which the runs hold them: 0 for red up to 3 for alpha.
std::optional<ByteBuffer> fromRuns(std::int64_t side, std::span<const std::uint8_t> runs,
                                   std::span<const std::size_t> samples,
                                   std::span<const std::uint8_t> mask) {
  const PixelSize size{side, side};
  auto block = MemoryBlock::allocate(Bitmap::byteCount(size).value_or(0));
  if (!block) return std::nullopt;
  const auto pixels = block->bytes();
  for (const std::size_t sample : samples) {
    if (!expandRuns(runs, pixels.subspan(sample))) return std::nullopt;
  }
  if (samples.size() < Bitmap::bytesPerPixel) {
    const std::size_t count = pixels.size() / Bitmap::bytesPerPixel;
    for (std::size_t i = 0; i < count; ++i) {
      pixels[i * Bitmap::bytesPerPixel + 3] = mask.size() == count ? mask[i] : 255;
    }
  }
  return writeHeldTIFF(Bitmap(size, ByteBuffer(*std::move(block))));
}

Elements elementsOf(std::span<const std::uint8_t> bytes) {
  Elements elements;
  while (bytes.size() >= headerSize) {
    const std::size_t size = big32(bytes, 4);
    if (size < headerSize || size > bytes.size()) break;
    elements.emplace(std::string_view(reinterpret_cast<const char*>(bytes.data()), 4),
                     bytes.subspan(headerSize, size - headerSize));
    bytes = bytes.subspan(size);
  }
  return elements;
}

std::optional<ByteBuffer> pictureOf(const Type& type, std::span<const std::uint8_t> data,
                                    const Elements& elements, const ByteBuffer& file) {
  static constexpr std::array<std::size_t, 3> rgb{0, 1, 2};
  static constexpr std::array<std::size_t, 4> argb{3, 0, 1, 2};
  static constexpr std::string_view argbMark = "ARGB";
  if (magic::png(data) || magic::jpeg2000(data)) {
    return file.slice(static_cast<std::size_t>(data.data() - file.bytes().data()), data.size());
  }
  if (std::string_view(reinterpret_cast<const char*>(data.data()), data.size())
          .starts_with(argbMark)) {
    return fromRuns(type.side, data.subspan(argbMark.size()), argb, {});
  }
  if (type.mask.empty()) return std::nullopt;
  // The largest of the types in runs begins with four bytes of nothing.
  if (type.name == "it32") data = data.subspan(std::min<std::size_t>(4, data.size()));
  const auto mask = elements.find(type.mask);
  return fromRuns(type.side, data, rgb,
                  mask == elements.end() ? std::span<const std::uint8_t>() : mask->second);
}

}  // namespace

std::optional<ByteBuffer> largestOfICNS(const ByteBuffer& file) {
  if (file.bytes().size() < headerSize) return std::nullopt;
  const auto elements = elementsOf(file.bytes().subspan(headerSize));
  for (const Type& type : types) {
    const auto element = elements.find(type.name);
    if (element == elements.end()) continue;
    if (auto picture = pictureOf(type, element->second, elements, file)) return picture;
  }
  return std::nullopt;
}

}  // namespace tessarine::preparation
