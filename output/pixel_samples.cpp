#include "output/pixel_samples.h"

#include <array>
#include <cstring>

// The part between HWY_BEFORE_NAMESPACE and HWY_AFTER_NAMESPACE is compiled once for every
// instruction set; the one to use is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "output/pixel_samples.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tessarine::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

constexpr hn::ScalableTag<std::int16_t> samplesTag;
constexpr hn::RebindToUnsigned<decltype(samplesTag)> unsignedTag;
constexpr hn::Repartition<std::uint64_t, decltype(samplesTag)> pixelsTag;
constexpr hn::Rebind<std::uint8_t, decltype(samplesTag)> levelsTag;
using Samples = hn::Vec<decltype(samplesTag)>;
using Unsigned = hn::Vec<decltype(unsignedTag)>;

constexpr std::int16_t opaque = 255 * 100;
// Alpha below this rounds to 0.
constexpr std::int16_t visible = 50;

constexpr std::size_t cacheLine = 64;

// For every two pixels of 16-bit numbers.
alignas(16) constexpr std::uint8_t alphaOfPixel[16] = {6,  7,  6,  7,  6,  7,  6,  7,
                                                       14, 15, 14, 15, 14, 15, 14, 15};
alignas(16) constexpr std::uint16_t colourLanes[8] = {0xFFFF, 0xFFFF, 0xFFFF, 0,
                                                      0xFFFF, 0xFFFF, 0xFFFF, 0};

template <class V>
HWY_INLINE V alphas(V pixels) {
  const hn::DFromV<V> d;
  const hn::Repartition<std::uint8_t, decltype(d)> bytes;
  return hn::BitCast(
      d, hn::TableLookupBytes(hn::BitCast(bytes, pixels), hn::LoadDup128(bytes, alphaOfPixel)));
}

HWY_INLINE Unsigned premultiplied(const std::uint8_t* levels) {
  const Unsigned pixels = hn::PromoteTo(unsignedTag, hn::LoadU(levelsTag, levels));
  const auto isColour = hn::MaskFromVec(hn::LoadDup128(unsignedTag, colourLanes));
  const Unsigned factors = hn::IfThenElse(isColour, alphas(pixels), hn::Set(unsignedTag, 255));
  // By 100 / 255, rounded, with signs for the only multiplication that rounds.
  constexpr std::int16_t factor = 12850;
  const auto low = hn::Xor(hn::Mul(pixels, factors), hn::Set(unsignedTag, 0x8000));
  const Samples scaled =
      hn::MulFixedPoint15(hn::BitCast(samplesTag, low), hn::Set(samplesTag, factor));
  return hn::BitCast(unsignedTag, hn::Add(scaled, hn::Set(samplesTag, factor)));
}

HWY_INLINE void storeSamples(Unsigned value, std::int16_t* samples) {
  hn::Store(hn::BitCast(samplesTag, value), samplesTag, samples);
}

// Pixels that can be read up to the end of their group: in place, or in a copy.
template <std::size_t count>
class Group {
 public:
  HWY_INLINE const std::uint8_t* read(const std::uint8_t* levels, std::size_t pixels) {
    if (pixels >= count) return levels;
    std::memcpy(copy_, levels, pixels * samplesPerPixel);
    std::memset(copy_ + pixels * samplesPerPixel, 0, (count - pixels) * samplesPerPixel);
    return copy_;
  }

 private:
  // Not cleared, which would cost more than most groups.
  std::uint8_t copy_[count * samplesPerPixel];
};

// Fetches bytes into the cache. They may lie behind a bitmap's end, where nothing happens; but such
// an address must be made of a number.
HWY_INLINE void prefetch(const std::uint8_t* levels, std::size_t offset, std::size_t byteCount) {
  const auto first = reinterpret_cast<std::uintptr_t>(levels) + offset;
  for (std::size_t i = 0; i < byteCount; i += cacheLine) {
    hwy::Prefetch(reinterpret_cast<const std::uint8_t*>(first + i));  // NOLINT(*-int-to-ptr)
  }
}

// Calls `load` with two rows that hold whole groups, each of `step` pixels for one of `pixels`.
template <std::size_t step, class Load>
HWY_INLINE void forGroups(const std::uint8_t* upper, const std::uint8_t* lower, std::size_t pixels,
                          const Load& load) {
  Group<step * pixelGroup> upperGroup;
  Group<step * pixelGroup> lowerGroup;
  constexpr std::size_t groupBytes = step * pixelGroup * samplesPerPixel;
  const std::size_t rowBytes = step * pixels * samplesPerPixel;
  for (std::size_t pixel = 0; pixel < pixels; pixel += pixelGroup) {
    const std::size_t offset = step * pixel * samplesPerPixel;
    // What follows in these rows: the rows below are read before it, which no processor foresees.
    prefetch(upper, offset + rowBytes, groupBytes);
    prefetch(lower, offset + rowBytes, groupBytes);
    const std::size_t rest = step * (pixels - pixel);
    load(upperGroup.read(upper + offset, rest), lowerGroup.read(lower + offset, rest), pixel);
  }
}

void loadRow(const std::uint8_t* levels, std::size_t pixels, std::int16_t* samples) {
  forGroups<1>(levels, levels, pixels, [&](auto* group, auto*, std::size_t pixel) HWY_ATTR {
    for (std::size_t i = 0; i < pixelGroup * samplesPerPixel; i += hn::Lanes(samplesTag)) {
      storeSamples(premultiplied(group + i), samples + pixel * samplesPerPixel + i);
    }
  });
}

void loadRowPair(const std::uint8_t* upper, const std::uint8_t* lower, std::size_t pixels,
                 std::int16_t* rowPair) {
  const std::size_t lanes = hn::Lanes(samplesTag);
  forGroups<1>(upper, lower, pixels, [&](auto* up, auto* low, std::size_t pixel) HWY_ATTR {
    std::int16_t* out = rowPair + 2 * pixel * samplesPerPixel;
    for (std::size_t i = 0; i < pixelGroup * samplesPerPixel; i += lanes) {
      const Unsigned a = premultiplied(up + i);
      const Unsigned b = premultiplied(low + i);
      storeSamples(hn::InterleaveLower(unsignedTag, a, b), out + 2 * i);
      storeSamples(hn::InterleaveUpper(unsignedTag, a, b), out + 2 * i + lanes);
    }
  });
}

// The means of squares, from two rows of two vectors each.
HWY_INLINE Unsigned halved(Unsigned upper0, Unsigned upper1, Unsigned lower0, Unsigned lower1) {
  const auto left = hn::BitCast(pixelsTag, hn::AverageRound(upper0, lower0));
  const auto right = hn::BitCast(pixelsTag, hn::AverageRound(upper1, lower1));
  const auto even = hn::ConcatEven(pixelsTag, right, left);
  const auto odd = hn::ConcatOdd(pixelsTag, right, left);
  return hn::AverageRound(hn::BitCast(unsignedTag, even), hn::BitCast(unsignedTag, odd));
}

void loadHalvedRow(const std::uint8_t* upper, const std::uint8_t* lower, std::size_t pixels,
                   std::int16_t* samples) {
  const std::size_t lanes = hn::Lanes(samplesTag);
  forGroups<2>(upper, lower, pixels, [&](auto* up, auto* low, std::size_t pixel) HWY_ATTR {
    for (std::size_t i = 0; i < pixelGroup * samplesPerPixel; i += lanes) {
      storeSamples(halved(premultiplied(up + 2 * i), premultiplied(up + 2 * i + lanes),
                          premultiplied(low + 2 * i), premultiplied(low + 2 * i + lanes)),
                   samples + pixel * samplesPerPixel + i);
    }
  });
}

// The quotients, rounded, of half a vector of samples, as levels.
template <class V>
HWY_INLINE auto quotients(V samples, V wholes) {
  const hn::RepartitionToWide<hn::Twice<hn::DFromV<V>>> wide;
  const hn::Rebind<float, decltype(wide)> real;
  const auto level =
      hn::Div(hn::Mul(hn::ConvertTo(real, hn::PromoteTo(wide, samples)), hn::Set(real, 255.0f)),
              hn::ConvertTo(real, hn::PromoteTo(wide, wholes)));
  // Halves go up, as they do where everything is opaque.
  return hn::DemoteTo(hn::Rebind<std::uint8_t, decltype(wide)>(),
                      hn::ConvertTo(wide, hn::Add(level, hn::Set(real, 0.5f))));
}

HWY_INLINE void storeVector(const std::int16_t* samples, std::uint8_t* levels) {
  const Samples sample = hn::Load(samplesTag, samples);
  const Samples most = hn::Set(samplesTag, opaque);
  const Samples alpha = hn::Min(alphas(sample), most);
  const auto isVisible = hn::Gt(alpha, hn::Set(samplesTag, visible - 1));
  if (hn::AllFalse(samplesTag, isVisible)) {
    return hn::StoreU(hn::Zero(levelsTag), levelsTag, levels);
  }
  const Samples colour = hn::Min(hn::Max(sample, hn::Zero(samplesTag)), alpha);
  if (hn::AllTrue(samplesTag, hn::Eq(alpha, most))) {
    // By 100, rounded: exact for every number below 43,698.
    const auto half = hn::Add(hn::BitCast(unsignedTag, colour), hn::Set(unsignedTag, 50));
    const auto level = hn::ShiftRight<3>(hn::MulHigh(half, hn::Set(unsignedTag, 5243)));
    return hn::StoreU(hn::DemoteTo(levelsTag, hn::BitCast(samplesTag, level)), levelsTag, levels);
  }
  const auto isColour =
      hn::MaskFromVec(hn::BitCast(samplesTag, hn::LoadDup128(unsignedTag, colourLanes)));
  const Samples shown = hn::IfThenElseZero(isVisible, colour);
  const Samples wholes =
      hn::IfThenElse(isColour, hn::Max(alpha, hn::Set(samplesTag, visible)), most);
  const hn::Half<decltype(samplesTag)> half;
  const auto low = quotients(hn::LowerHalf(half, shown), hn::LowerHalf(half, wholes));
  const auto high = quotients(hn::UpperHalf(half, shown), hn::UpperHalf(half, wholes));
  hn::StoreU(low, hn::DFromV<decltype(low)>(), levels);
  hn::StoreU(high, hn::DFromV<decltype(high)>(), levels + hn::Lanes(half));
}

void storeRow(const std::int16_t* samples, std::size_t pixels, std::uint8_t* levels) {
  const std::size_t lanes = hn::Lanes(samplesTag);
  const std::size_t end = pixels * samplesPerPixel;
  std::size_t i = 0;
  for (; i + lanes <= end; i += lanes) storeVector(samples + i, levels + i);
  if (i < end) {
    std::array<std::uint8_t, pixelGroup * samplesPerPixel> last;
    storeVector(samples + i, last.data());
    std::memcpy(levels + i, last.data(), end - i);
  }
}

}  // namespace
}  // namespace tessarine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tessarine {

HWY_EXPORT(loadRow);
HWY_EXPORT(loadRowPair);
HWY_EXPORT(loadHalvedRow);
HWY_EXPORT(storeRow);

void loadRow(const std::uint8_t* levels, std::size_t pixels, std::int16_t* samples) {
  HWY_DYNAMIC_DISPATCH(loadRow)(levels, pixels, samples);
}

void loadRowPair(const std::uint8_t* upper, const std::uint8_t* lower, std::size_t pixels,
                 std::int16_t* rowPair) {
  HWY_DYNAMIC_DISPATCH(loadRowPair)(upper, lower, pixels, rowPair);
}

void loadHalvedRow(const std::uint8_t* upper, const std::uint8_t* lower, std::size_t pixels,
                   std::int16_t* samples) {
  HWY_DYNAMIC_DISPATCH(loadHalvedRow)(upper, lower, pixels, samples);
}

void storeRow(const std::int16_t* samples, std::size_t pixels, std::uint8_t* levels) {
  HWY_DYNAMIC_DISPATCH(storeRow)(samples, pixels, levels);
}

}  // namespace tessarine
#endif  // HWY_ONCE
