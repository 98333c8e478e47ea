#include "output/sample_mixing.h"

#include <array>
#include <cstring>

#include "output/pixel_samples.h"
#include "output/taps.h"

// The part between HWY_BEFORE_NAMESPACE and HWY_AFTER_NAMESPACE is compiled once for every
// instruction set; the one to use is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "output/sample_mixing.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tessarine::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

constexpr hn::ScalableTag<std::int16_t> samplesTag;
using Samples = hn::Vec<decltype(samplesTag)>;

// Sums of products of pairs. The processor may keep each in two halves.
template <class D>
class PairSums {
 public:
  using Sums = hn::Vec<hn::RepartitionToWide<D>>;

  HWY_INLINE PairSums() : sums_(hn::Zero(tag)), others_(hn::Zero(tag)) {}
  HWY_INLINE void add(hn::Vec<D> pairs, hn::Vec<D> weights) {
    sums_ = hn::ReorderWidenMulAccumulate(tag, pairs, weights, sums_, others_);
  }
  HWY_INLINE Sums value() const { return hn::RearrangeToOddPlusEven(sums_, others_); }
  HWY_INLINE void addTo(std::int32_t* sums) const {
    hn::Store(hn::Add(hn::Load(tag, sums), value()), tag, sums);
  }

 private:
  static constexpr hn::RepartitionToWide<D> tag{};
  Sums sums_;
  Sums others_;
};

// Both weights of a pair, over and over.
template <class D>
HWY_INLINE hn::Vec<D> repeated(D d, const std::int16_t* weights) {
  std::int32_t both;
  std::memcpy(&both, weights, sizeof both);
  return hn::BitCast(d, hn::Set(hn::RepartitionToWide<D>(), both));
}

// Two vectors of sums as one of samples.
template <class D, class Sums>
HWY_INLINE hn::Vec<D> rounded(D d, Sums first, Sums second) {
  const Sums half = hn::Set(hn::DFromV<Sums>(), weightSum / 2);
  return hn::ReorderDemote2To(d, hn::ShiftRight<weightBits>(hn::Add(first, half)),
                              hn::ShiftRight<weightBits>(hn::Add(second, half)));
}

void pairRows(const std::int16_t* upper, const std::int16_t* lower, std::size_t pixels,
              std::int16_t* rowPair) {
  const std::size_t lanes = hn::Lanes(samplesTag);
  for (std::size_t i = 0; i < pixels * samplesPerPixel; i += lanes) {
    const Samples a = hn::Load(samplesTag, upper + i);
    const Samples b = hn::Load(samplesTag, lower + i);
    hn::Store(hn::InterleaveLower(samplesTag, a, b), samplesTag, rowPair + 2 * i);
    hn::Store(hn::InterleaveUpper(samplesTag, a, b), samplesTag, rowPair + 2 * i + lanes);
  }
}

void pairColumns(const std::int16_t* samples, std::size_t pixels, std::int16_t* columnPairs) {
  alignas(16) static constexpr std::uint8_t sameChannels[16] = {0, 1, 8,  9,  2, 3, 10, 11,
                                                                4, 5, 12, 13, 6, 7, 14, 15};
  const hn::Repartition<std::uint8_t, decltype(samplesTag)> bytes;
  const auto order = hn::LoadDup128(bytes, sameChannels);
  for (std::size_t i = 0; i < pixels * samplesPerPixel; i += hn::Lanes(samplesTag)) {
    const auto row = hn::BitCast(bytes, hn::Load(samplesTag, samples + i));
    hn::Store(hn::BitCast(samplesTag, hn::TableLookupBytes(row, order)), samplesTag,
              columnPairs + i);
  }
}

void addRows(const std::int16_t* const* rowPairs, std::size_t pairs, const std::int16_t* weights,
             std::size_t pixels, std::int32_t* sums) {
  // As many as the registers hold: each weight is loaded once for all of them.
  constexpr std::size_t unrolled = 8;
  const std::size_t lanes = hn::Lanes(samplesTag);
  for (std::size_t i = 0; i < 2 * pixels * samplesPerPixel; i += unrolled * lanes) {
    PairSums<decltype(samplesTag)> s0, s1, s2, s3, s4, s5, s6, s7;
    for (std::size_t pair = 0; pair < pairs; ++pair) {
      const Samples weight = repeated(samplesTag, weights + 2 * pair);
      const std::int16_t* row = rowPairs[pair] + i;
      s0.add(hn::Load(samplesTag, row), weight);
      s1.add(hn::Load(samplesTag, row + lanes), weight);
      s2.add(hn::Load(samplesTag, row + 2 * lanes), weight);
      s3.add(hn::Load(samplesTag, row + 3 * lanes), weight);
      s4.add(hn::Load(samplesTag, row + 4 * lanes), weight);
      s5.add(hn::Load(samplesTag, row + 5 * lanes), weight);
      s6.add(hn::Load(samplesTag, row + 6 * lanes), weight);
      s7.add(hn::Load(samplesTag, row + 7 * lanes), weight);
    }
    std::int32_t* out = sums + i / 2;
    s0.addTo(out);
    s1.addTo(out + lanes / 2);
    s2.addTo(out + lanes / 2 * 2);
    s3.addTo(out + lanes / 2 * 3);
    s4.addTo(out + lanes / 2 * 4);
    s5.addTo(out + lanes / 2 * 5);
    s6.addTo(out + lanes / 2 * 6);
    s7.addTo(out + lanes / 2 * 7);
  }
}

void takeSums(std::int32_t* sums, std::size_t pixels, std::int16_t* samples) {
  constexpr hn::RepartitionToWide<decltype(samplesTag)> sumsTag;
  const std::size_t lanes = hn::Lanes(samplesTag);
  for (std::size_t i = 0; i < pixels * samplesPerPixel; i += lanes) {
    std::int32_t* second = sums + i + lanes / 2;
    hn::Store(rounded(samplesTag, hn::Load(sumsTag, sums + i), hn::Load(sumsTag, second)),
              samplesTag, samples + i);
    hn::Store(hn::Zero(sumsTag), sumsTag, sums + i);
    hn::Store(hn::Zero(sumsTag), sumsTag, second);
  }
}

// Two columns of four channels fill 16 bytes, whatever the processor's vectors hold.
constexpr hn::FixedTag<std::int16_t, 2 * samplesPerPixel> columnsTag;

HWY_INLINE auto mixedColumn(const std::int16_t* columnPairs, const ColumnTaps& taps,
                            std::size_t pixel) {
  const std::int16_t* pairs = columnPairs + taps.firsts[pixel] * samplesPerPixel;
  const std::int16_t* weights = taps.weights + pixel * taps.count;
  PairSums<decltype(columnsTag)> sums;
  for (std::size_t tap = 0; tap < taps.count; tap += 2) {
    sums.add(hn::LoadU(columnsTag, pairs + tap * samplesPerPixel),
             repeated(columnsTag, weights + tap));
  }
  return sums.value();
}

void mixColumns(const std::int16_t* columnPairs, const ColumnTaps& taps, std::size_t pixels,
                std::int16_t* samples) {
  for (std::size_t pixel = 0; pixel < pixels; pixel += 2) {
    hn::Store(rounded(columnsTag, mixedColumn(columnPairs, taps, pixel),
                      mixedColumn(columnPairs, taps, pixel + 1)),
              columnsTag, samples + pixel * samplesPerPixel);
  }
}

}  // namespace
}  // namespace tessarine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tessarine {

HWY_EXPORT(pairRows);
HWY_EXPORT(pairColumns);
HWY_EXPORT(addRows);
HWY_EXPORT(takeSums);
HWY_EXPORT(mixColumns);

void pairRows(const std::int16_t* upper, const std::int16_t* lower, std::size_t pixels,
              std::int16_t* rowPair) {
  HWY_DYNAMIC_DISPATCH(pairRows)(upper, lower, pixels, rowPair);
}

void pairColumns(const std::int16_t* samples, std::size_t pixels, std::int16_t* columnPairs) {
  HWY_DYNAMIC_DISPATCH(pairColumns)(samples, pixels, columnPairs);
}

void addRows(const std::int16_t* const* rowPairs, std::size_t pairs, const std::int16_t* weights,
             std::size_t pixels, std::int32_t* sums) {
  HWY_DYNAMIC_DISPATCH(addRows)(rowPairs, pairs, weights, pixels, sums);
}

void takeSums(std::int32_t* sums, std::size_t pixels, std::int16_t* samples) {
  HWY_DYNAMIC_DISPATCH(takeSums)(sums, pixels, samples);
}

void mixColumns(const std::int16_t* columnPairs, const ColumnTaps& taps, std::size_t pixels,
                std::int16_t* samples) {
  HWY_DYNAMIC_DISPATCH(mixColumns)(columnPairs, taps, pixels, samples);
}

}  // namespace tessarine
#endif  // HWY_ONCE
