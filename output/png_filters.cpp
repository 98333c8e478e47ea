#include "output/png_filters.h"

// The part between HWY_BEFORE_NAMESPACE and HWY_AFTER_NAMESPACE is compiled once for every
// instruction set; the one to use is chosen when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "output/png_filters.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tessarine::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

constexpr std::size_t pixelBytes = Bitmap::bytesPerPixel;
// Of a byte that a filter does not foretell: past this one is as bad as another.
constexpr std::uint8_t largestCost = 32;

struct Row {
  const std::uint8_t* here;
  const std::uint8_t* above;  // null over the first row: its neighbours there count as 0
  std::size_t byteCount;
};

template <class V>
HWY_INLINE V absoluteDifference(V a, V b) {
  return hn::Or(hn::SaturatedSub(a, b), hn::SaturatedSub(b, a));
}

// Of left, above and corner the one nearest to left + above - corner, in this order on a tie. With
// the corner outside the other two it is never chosen; between them, its distance is the
// difference of the other two distances, so that bytes suffice.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V paeth(D d, V left, V above, V corner) {
  const V toLeft = absoluteDifference(above, corner);
  const V toAbove = absoluteDifference(left, corner);
  const V nearest = hn::Min(toLeft, toAbove);
  const V side = hn::IfThenElse(hn::Eq(nearest, toLeft), left, above);
  const V toCorner = absoluteDifference(toLeft, toAbove);
  const V clamped = hn::Max(hn::Min(left, above), hn::Min(hn::Max(left, above), corner));
  const auto between = hn::Eq(clamped, corner);
  const auto beaten = hn::Ne(hn::SaturatedSub(nearest, toCorner), hn::Zero(d));
  return hn::IfThenElse(hn::And(between, beaten), corner, side);
}

template <PNGFilter filter, class D, class V = hn::Vec<D>>
HWY_INLINE V predicted(D d, V left, V above, V corner) {
  if constexpr (filter == PNGFilter::sub) return left;
  if constexpr (filter == PNGFilter::up) return above;
  if constexpr (filter == PNGFilter::average) {
    const V roundedUp = hn::And(hn::Xor(left, above), hn::Set(d, 1));
    return hn::Sub(hn::AverageRound(left, above), roundedUp);
  }
  if constexpr (filter == PNGFilter::paeth) return paeth(d, left, above, corner);
  return hn::Zero(d);
}

// The results of `filter` for the lanes from byte `i` on.
template <PNGFilter filter, class D>
HWY_INLINE hn::Vec<D> residual(D d, const Row& row, std::size_t i) {
  const bool first = i < pixelBytes;
  const auto zero = hn::Zero(d);
  const auto left = first ? zero : hn::LoadU(d, row.here + i - pixelBytes);
  const auto above = row.above == nullptr ? zero : hn::LoadU(d, row.above + i);
  const auto corner =
      first || row.above == nullptr ? zero : hn::LoadU(d, row.above + i - pixelBytes);
  return hn::Sub(hn::LoadU(d, row.here + i), predicted<filter>(d, left, above, corner));
}

// What a result is expected to take in the file.
template <class D, class V>
HWY_INLINE V cost(D d, V residual) {
  return hn::Min(hn::Min(residual, hn::Sub(hn::Zero(d), residual)), hn::Set(d, largestCost));
}

// Writes the results and answers with the sum of their costs.
template <PNGFilter filter>
std::uint64_t filterRow(const Row& row, std::uint8_t* results) {
  const hn::ScalableTag<std::uint8_t> vector;
  const hn::CappedTag<std::uint8_t, 1> single;
  std::uint64_t sum = 0;
  const auto byteAt = [&](std::size_t i) {
    const auto result = residual<filter>(single, row, i);
    hn::StoreU(result, single, results + i);
    sum += hn::GetLane(cost(single, result));
  };

  std::size_t i = 0;
  for (; i < pixelBytes; ++i) byteAt(i);
  const hn::Repartition<std::uint64_t, decltype(vector)> sums;
  auto vectorSum = hn::Zero(sums);
  for (; i + hn::Lanes(vector) <= row.byteCount; i += hn::Lanes(vector)) {
    const auto result = residual<filter>(vector, row, i);
    hn::StoreU(result, vector, results + i);
    vectorSum = hn::Add(vectorSum, hn::SumsOf8(cost(vector, result)));
  }
  sum += hn::GetLane(hn::SumOfLanes(sums, vectorSum));
  for (; i < row.byteCount; ++i) byteAt(i);
  return sum;
}

std::size_t countZeros(const std::uint8_t* bytes, std::size_t byteCount) {
  const hn::ScalableTag<std::uint8_t> vector;
  std::size_t count = 0;
  std::size_t i = 0;
  for (; i + hn::Lanes(vector) <= byteCount; i += hn::Lanes(vector)) {
    count += hn::CountTrue(vector, hn::Eq(hn::LoadU(vector, bytes + i), hn::Zero(vector)));
  }
  for (; i < byteCount; ++i) count += bytes[i] == 0 ? 1 : 0;
  return count;
}

std::size_t filterRows(const Bitmap& bitmap, std::span<std::uint8_t> filtered) {
  using FilterRow = std::uint64_t (*)(const Row&, std::uint8_t*);
  static constexpr FilterRow filters[] = {filterRow<PNGFilter::none>, filterRow<PNGFilter::sub>,
                                          filterRow<PNGFilter::up>, filterRow<PNGFilter::average>,
                                          filterRow<PNGFilter::paeth>};
  constexpr std::uint8_t filterCount = std::size(filters);

  const std::size_t rowBytes = bitmap.row(0).size();
  std::uint8_t* out = filtered.data();
  const std::uint8_t* above = nullptr;
  std::size_t zeros = 0;
  for (std::int64_t y = 0; y < bitmap.size().height; ++y, out += 1 + rowBytes) {
    const Row row{bitmap.row(y).data(), above, rowBytes};
    above = row.here;
    std::uint8_t best = 0;
    std::uint64_t bestSum = ~std::uint64_t{0};
    for (std::uint8_t type = 0; type < filterCount; ++type) {
      const std::uint64_t sum = filters[type](row, out + 1);
      if (sum >= bestSum) continue;
      best = type;
      bestSum = sum;
    }
    out[0] = best;
    // The last filter's results are there already.
    if (best + 1 < filterCount) filters[best](row, out + 1);
    zeros += countZeros(out + 1, rowBytes);
  }
  return zeros;
}

}  // namespace
}  // namespace tessarine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tessarine {

HWY_EXPORT(filterRows);

std::size_t filteredByteCount(PixelSize size) noexcept {
  return static_cast<std::size_t>(size.height) *
         (1 + static_cast<std::size_t>(size.width) * Bitmap::bytesPerPixel);
}

std::size_t filterRows(const Bitmap& bitmap, std::span<std::uint8_t> filtered) {
  return HWY_DYNAMIC_DISPATCH(filterRows)(bitmap, filtered);
}

}  // namespace tessarine
#endif
