#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "platform/picture.h"

namespace tessarine {

// The pixels of the files of one name.
struct IconSize {
  std::string_view name;
  PixelSize pixels;
};

// One platform's set, as data. The texts and tables must outlive it.
struct IconSet {
  // Base names without an extension, in production order.
  std::span<const std::string_view> names;
  // Looked up by exact equality of the whole name; the first equal row wins. A name that no row
  // matches is written at the picture's own size.
  std::span<const IconSize> sizes;
  // The text of `Contents.json`, for the sets that have one.
  std::optional<std::string_view> contentsJSON;
};

constexpr std::optional<PixelSize> sizeOf(const IconSet& set, std::string_view name) {
  const auto row = std::ranges::find(set.sizes, name, &IconSize::name);
  if (row == set.sizes.end()) return std::nullopt;
  return row->pixels;
}

// How many files a run writes, those counted twice whose name stands twice.
constexpr std::size_t fileCount(const IconSet& set) {
  return set.names.size() + (set.contentsJSON ? 1 : 0);
}

// A list of names that stands in the order of its size table.
template <std::size_t count>
constexpr std::array<std::string_view, count> namesOf(const std::array<IconSize, count>& sizes) {
  std::array<std::string_view, count> names;
  std::ranges::transform(sizes, names.begin(), &IconSize::name);
  return names;
}

}  // namespace tessarine
