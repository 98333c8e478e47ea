#include "output/resample_passes.h"

#include <algorithm>
#include <array>
#include <cstring>

// The order in which these two narrow their lanes differs.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128 | HWY_RVV)
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "output/resample_passes.cpp"
#include <hwy/foreach_target.h>
// After foreach_target.h.
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tessarine::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// Full vectors of the samples, and of the numbers beside them.
constexpr hn::ScalableTag<std::int16_t> samplesTag;
constexpr hn::RebindToUnsigned<decltype(samplesTag)> unsignedTag;
constexpr hn::Rebind<std::uint8_t, decltype(samplesTag)> levelsTag;
constexpr hn::RepartitionToWide<decltype(samplesTag)> sumsTag;
using Samples = hn::Vec<decltype(samplesTag)>;
using Sums = hn::Vec<decltype(sumsTag)>;

constexpr int stepsPerLevel = 100;
constexpr std::int16_t opaque = 255 * stepsPerLevel;
// Alpha below this is nearer to 0 than to 1.
constexpr std::int16_t visible = stepsPerLevel / 2;
constexpr std::int32_t rounding = weightSum / 2;

// For every 16 bytes, which are two pixels of 16-bit numbers.
alignas(16) constexpr std::uint8_t alphaOfPixel[16] = {6,  7,  6,  7,  6,  7,  6,  7,
                                                       14, 15, 14, 15, 14, 15, 14, 15};
alignas(16) constexpr std::uint8_t sameChannels[16] = {0, 1, 8,  9,  2, 3, 10, 11,
                                                       4, 5, 12, 13, 6, 7, 14, 15};
alignas(16) constexpr std::uint16_t colourLanes[8] = {0xFFFF, 0xFFFF, 0xFFFF, 0,
                                                      0xFFFF, 0xFFFF, 0xFFFF, 0};

template <class V>
HWY_INLINE V shuffled(V vector, const std::uint8_t (&order)[16]) {
  const hn::DFromV<V> d;
  const hn::Repartition<std::uint8_t, decltype(d)> bytes;
  return hn::BitCast(
      d, hn::TableLookupBytes(hn::BitCast(bytes, vector), hn::LoadDup128(bytes, order)));
}

// Whole vectors are read: `levels` must have them.
HWY_INLINE Samples premultiplied(const std::uint8_t* levels) {
  const auto pixel = hn::PromoteTo(unsignedTag, hn::LoadU(levelsTag, levels));
  const auto factor = hn::IfThenElse(hn::MaskFromVec(hn::LoadDup128(unsignedTag, colourLanes)),
                                     shuffled(pixel, alphaOfPixel), hn::Set(unsignedTag, 255));
  // Times 100 / 255 in 16-bit fixed point; the 1 makes the products with 255 come out exactly.
  const auto product = hn::Add(hn::Mul(pixel, factor), hn::Set(unsignedTag, 1));
  return hn::BitCast(samplesTag, hn::MulHigh(product, hn::Set(unsignedTag, 25700)));
}

// Calls `store(levels..., pixel, pixels)` for whole groups: the last one is copied to where it can
// be read to its end.
template <class Function>
HWY_INLINE void forGroups(std::size_t pixels, const Function& function) {
  std::size_t pixel = 0;
  for (; pixel + pixelGroup <= pixels; pixel += pixelGroup) function(pixel, pixelGroup);
  if (pixel < pixels) function(pixel, pixels - pixel);
}

// Where a group of pixels can be read to its end: in place, or in a copy.
class Group {
 public:
  HWY_INLINE const std::uint8_t* read(const std::uint8_t* levels, std::size_t pixels) {
    if (pixels == pixelGroup) return levels;
    std::memcpy(copy_.data(), levels, pixels * channels);
    return copy_.data();
  }

 private:
  std::array<std::uint8_t, pixelGroup * channels> copy_{};
};

HWY_INLINE void storePair(Samples upper, Samples lower, std::int16_t* rowPair) {
  hn::Store(hn::InterleaveLower(samplesTag, upper, lower), samplesTag, rowPair);
  hn::Store(hn::InterleaveUpper(samplesTag, upper, lower), samplesTag,
            rowPair + hn::Lanes(samplesTag));
}

void pairRows(const std::uint8_t* upper, const std::uint8_t* lower, std::size_t pixels,
              std::int16_t* rowPair) {
  const std::size_t lanes = hn::Lanes(samplesTag);
  Group upperGroup;
  Group lowerGroup;
  forGroups(pixels, [&](std::size_t pixel, std::size_t count) HWY_ATTR {
    const std::uint8_t* up = upperGroup.read(upper + pixel * channels, count);
    const std::uint8_t* low = lowerGroup.read(lower + pixel * channels, count);
    std::int16_t* out = rowPair + 2 * pixel * channels;
    for (std::size_t i = 0; i < pixelGroup * channels; i += lanes) {
      storePair(premultiplied(up + i), premultiplied(low + i), out + 2 * i);
    }
  });
}

void pairSampleRows(const std::int16_t* upper, const std::int16_t* lower, std::size_t pixels,
                    std::int16_t* rowPair) {
  for (std::size_t i = 0; i < pixels * channels; i += hn::Lanes(samplesTag)) {
    storePair(hn::Load(samplesTag, upper + i), hn::Load(samplesTag, lower + i), rowPair + 2 * i);
  }
}

void pairColumns(const std::uint8_t* row, std::size_t pixels, std::int16_t* columnPairs) {
  const std::size_t lanes = hn::Lanes(samplesTag);
  Group group;
  forGroups(pixels, [&](std::size_t pixel, std::size_t count) HWY_ATTR {
    const std::uint8_t* levels = group.read(row + pixel * channels, count);
    std::int16_t* out = columnPairs + pixel * channels;
    for (std::size_t i = 0; i < pixelGroup * channels; i += lanes) {
      hn::Store(shuffled(premultiplied(levels + i), sameChannels), samplesTag, out + i);
    }
  });
}

// A sum of products of pairs. The processor may keep it in two halves.
class PairSum {
 public:
  HWY_INLINE PairSum() : sum_(hn::Zero(sumsTag)), other_(hn::Zero(sumsTag)) {}
  HWY_INLINE void add(Samples pairs, Samples weights) {
    sum_ = hn::ReorderWidenMulAccumulate(sumsTag, pairs, weights, sum_, other_);
  }
  HWY_INLINE Sums value() const { return hn::RearrangeToOddPlusEven(sum_, other_); }

 private:
  Sums sum_;
  Sums other_;
};

void addRows(const std::int16_t* const* rowPairs, std::size_t pairs, const std::int16_t* weights,
             std::size_t pixels, std::int32_t* sums) {
  const std::size_t lanes = hn::Lanes(samplesTag);
  for (std::size_t i = 0; i < 2 * pixels * channels; i += 8 * lanes) {
    PairSum sum0, sum1, sum2, sum3, sum4, sum5, sum6, sum7;
    for (std::size_t pair = 0; pair < pairs; ++pair) {
      std::int32_t both;
      std::memcpy(&both, weights + 2 * pair, sizeof both);
      const Samples weight = hn::BitCast(samplesTag, hn::Set(sumsTag, both));
      const std::int16_t* samples = rowPairs[pair] + i;
      sum0.add(hn::Load(samplesTag, samples), weight);
      sum1.add(hn::Load(samplesTag, samples + lanes), weight);
      sum2.add(hn::Load(samplesTag, samples + 2 * lanes), weight);
      sum3.add(hn::Load(samplesTag, samples + 3 * lanes), weight);
      sum4.add(hn::Load(samplesTag, samples + 4 * lanes), weight);
      sum5.add(hn::Load(samplesTag, samples + 5 * lanes), weight);
      sum6.add(hn::Load(samplesTag, samples + 6 * lanes), weight);
      sum7.add(hn::Load(samplesTag, samples + 7 * lanes), weight);
    }
    std::int32_t* out = sums + i / 2;
    const auto store = [&](const PairSum& sum, std::size_t place) HWY_ATTR {
      hn::Store(hn::Add(hn::Load(sumsTag, out + place), sum.value()), sumsTag, out + place);
    };
    store(sum0, 0);
    store(sum1, lanes / 2);
    store(sum2, lanes);
    store(sum3, lanes / 2 * 3);
    store(sum4, lanes / 2 * 4);
    store(sum5, lanes / 2 * 5);
    store(sum6, lanes / 2 * 6);
    store(sum7, lanes / 2 * 7);
  }
}

HWY_INLINE Sums rounded(Sums sum) {
  return hn::ShiftRight<weightBits>(hn::Add(sum, hn::Set(sumsTag, rounding)));
}

template <class Function>
HWY_INLINE void takeSumsBy(const Function& function, std::int32_t* sums, std::size_t pixels,
                           std::int16_t* samples) {
  const std::size_t lanes = hn::Lanes(samplesTag);
  for (std::size_t i = 0; i < pixels * channels; i += lanes) {
    const Sums low = hn::Load(sumsTag, sums + i);
    const Sums high = hn::Load(sumsTag, sums + i + lanes / 2);
    hn::Store(hn::Zero(sumsTag), sumsTag, sums + i);
    hn::Store(hn::Zero(sumsTag), sumsTag, sums + i + lanes / 2);
    hn::Store(function(hn::ReorderDemote2To(samplesTag, rounded(low), rounded(high))), samplesTag,
              samples + i);
  }
}

void takeSums(std::int32_t* sums, std::size_t pixels, std::int16_t* samples) {
  takeSumsBy([](Samples v) HWY_ATTR { return v; }, sums, pixels, samples);
}

void takeSumsAsColumnPairs(std::int32_t* sums, std::size_t pixels, std::int16_t* columnPairs) {
  takeSumsBy([](Samples v) HWY_ATTR { return shuffled(v, sameChannels); }, sums, pixels,
             columnPairs);
}

// A pixel's two columns fill 16 bytes, whatever the processor's vectors are.
constexpr hn::FixedTag<std::int16_t, 8> pixelTag;
constexpr hn::RepartitionToWide<decltype(pixelTag)> pixelSumTag;

HWY_INLINE hn::Vec<decltype(pixelSumTag)> mixedColumns(const std::int16_t* columnPairs,
                                                       const std::int16_t* weights,
                                                       std::size_t count) {
  auto sum = hn::Zero(pixelSumTag);
  auto other = hn::Zero(pixelSumTag);
  for (std::size_t tap = 0; tap < count; tap += 2) {
    std::int32_t both;
    std::memcpy(&both, weights + tap, sizeof both);
    const auto weight = hn::BitCast(pixelTag, hn::Set(pixelSumTag, both));
    const auto pair = hn::LoadU(pixelTag, columnPairs + tap * channels);
    sum = hn::ReorderWidenMulAccumulate(pixelSumTag, pair, weight, sum, other);
  }
  sum = hn::RearrangeToOddPlusEven(sum, other);
  return hn::ShiftRight<weightBits>(hn::Add(sum, hn::Set(pixelSumTag, rounding)));
}

void resizeRow(const std::int16_t* columnPairs, const ColumnTaps& taps, std::size_t pixels,
               std::int16_t* samples) {
  const auto mixed = [&](std::size_t pixel) HWY_ATTR {
    return mixedColumns(columnPairs + taps.firsts[pixel] * channels,
                        taps.weights + pixel * taps.count, taps.count);
  };
  for (std::size_t pixel = 0; pixel < pixels; pixel += 2) {
    hn::Store(hn::ReorderDemote2To(pixelTag, mixed(pixel), mixed(pixel + 1)), pixelTag,
              samples + pixel * channels);
  }
}

// The quotient, rounded, of some of a vector's colours and of what they are parts of.
template <class V>
HWY_INLINE auto quotients(V colours, V wholes) {
  const hn::RepartitionToWide<hn::Twice<hn::DFromV<V>>> wide;
  const hn::Rebind<float, decltype(wide)> real;
  const auto level =
      hn::Div(hn::Mul(hn::ConvertTo(real, hn::PromoteTo(wide, colours)), hn::Set(real, 255.0f)),
              hn::ConvertTo(real, hn::PromoteTo(wide, wholes)));
  // Halves go up, as they do where nothing is transparent.
  return hn::DemoteTo(hn::Rebind<std::uint8_t, decltype(wide)>(),
                      hn::ConvertTo(wide, hn::Add(level, hn::Set(real, 0.5f))));
}

HWY_INLINE void storeVector(const std::int16_t* samples, std::uint8_t* levels) {
  const auto zero = hn::Zero(samplesTag);
  const auto most = hn::Set(samplesTag, opaque);
  const Samples sample = hn::Load(samplesTag, samples);
  const Samples alpha = hn::Min(shuffled(sample, alphaOfPixel), most);
  if (hn::AllTrue(samplesTag, hn::Lt(alpha, hn::Set(samplesTag, visible)))) {
    return hn::StoreU(hn::Zero(levelsTag), levelsTag, levels);
  }
  const Samples colour = hn::Min(hn::Max(sample, zero), alpha);
  if (hn::AllTrue(samplesTag, hn::Eq(alpha, most))) {
    // Divided by 100, rounded: exact for every 16-bit number below 43,698.
    const auto half = hn::Add(hn::BitCast(unsignedTag, colour), hn::Set(unsignedTag, 50));
    const auto level = hn::ShiftRight<3>(hn::MulHigh(half, hn::Set(unsignedTag, 5243)));
    return hn::StoreU(hn::DemoteTo(levelsTag, hn::BitCast(samplesTag, level)), levelsTag, levels);
  }
  const auto isColour =
      hn::MaskFromVec(hn::BitCast(samplesTag, hn::LoadDup128(unsignedTag, colourLanes)));
  const auto shown = hn::IfThenElseZero(hn::Gt(alpha, hn::Set(samplesTag, visible - 1)), colour);
  const auto whole = hn::IfThenElse(isColour, hn::Max(alpha, hn::Set(samplesTag, visible)), most);
  const hn::Half<decltype(samplesTag)> half;
  const std::size_t halfLanes = hn::Lanes(half);
  const auto low = quotients(hn::LowerHalf(half, shown), hn::LowerHalf(half, whole));
  const auto high = quotients(hn::UpperHalf(half, shown), hn::UpperHalf(half, whole));
  hn::StoreU(low, hn::DFromV<decltype(low)>(), levels);
  hn::StoreU(high, hn::DFromV<decltype(high)>(), levels + halfLanes);
}

void storeRow(const std::int16_t* samples, std::size_t pixels, std::uint8_t* row) {
  const std::size_t lanes = hn::Lanes(samplesTag);
  const std::size_t whole = pixels * channels / lanes * lanes;
  for (std::size_t i = 0; i < whole; i += lanes) storeVector(samples + i, row + i);
  if (whole < pixels * channels) {
    std::array<std::uint8_t, pixelGroup * channels> last;
    storeVector(samples + whole, last.data());
    std::memcpy(row + whole, last.data(), pixels * channels - whole);
  }
}

}  // namespace tessarine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tessarine {

HWY_EXPORT(pairRows);
HWY_EXPORT(pairSampleRows);
HWY_EXPORT(pairColumns);
HWY_EXPORT(addRows);
HWY_EXPORT(takeSums);
HWY_EXPORT(takeSumsAsColumnPairs);
HWY_EXPORT(resizeRow);
HWY_EXPORT(storeRow);

void pairRows(const std::uint8_t* upper, const std::uint8_t* lower, std::size_t pixels,
              std::int16_t* rowPair) {
  HWY_DYNAMIC_DISPATCH(pairRows)(upper, lower, pixels, rowPair);
}

void pairSampleRows(const std::int16_t* upper, const std::int16_t* lower, std::size_t pixels,
                    std::int16_t* rowPair) {
  HWY_DYNAMIC_DISPATCH(pairSampleRows)(upper, lower, pixels, rowPair);
}

void pairColumns(const std::uint8_t* row, std::size_t pixels, std::int16_t* columnPairs) {
  HWY_DYNAMIC_DISPATCH(pairColumns)(row, pixels, columnPairs);
}

void addRows(const std::int16_t* const* rowPairs, std::size_t pairs, const std::int16_t* weights,
             std::size_t pixels, std::int32_t* sums) {
  HWY_DYNAMIC_DISPATCH(addRows)(rowPairs, pairs, weights, pixels, sums);
}

void takeSums(std::int32_t* sums, std::size_t pixels, std::int16_t* samples) {
  HWY_DYNAMIC_DISPATCH(takeSums)(sums, pixels, samples);
}

void takeSumsAsColumnPairs(std::int32_t* sums, std::size_t pixels, std::int16_t* columnPairs) {
  HWY_DYNAMIC_DISPATCH(takeSumsAsColumnPairs)(sums, pixels, columnPairs);
}

void resizeRow(const std::int16_t* columnPairs, const ColumnTaps& taps, std::size_t pixels,
               std::int16_t* samples) {
  HWY_DYNAMIC_DISPATCH(resizeRow)(columnPairs, taps, pixels, samples);
}

void storeRow(const std::int16_t* samples, std::size_t pixels, std::uint8_t* row) {
  HWY_DYNAMIC_DISPATCH(storeRow)(samples, pixels, row);
}

}  // namespace tessarine
#endif  // HWY_ONCE
