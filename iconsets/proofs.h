#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "iconsets/icon_set.h"
#include "output/catalogue.h"

// What the tables must fulfil, checked when they are compiled.
namespace tessarine {

// A catalogue's point size, such as "83.5", in tenths of a point.
constexpr std::optional<std::int64_t> tenthsOf(std::string_view decimal) {
  std::int64_t tenths = 0;
  bool fraction = false;
  for (const char c : decimal) {
    if (c == '.' && !fraction) {
      fraction = true;
    } else if (c >= '0' && c <= '9') {
      tenths = tenths * 10 + (c - '0');
    } else {
      return std::nullopt;
    }
  }
  if (!fraction) return tenths * 10;
  return decimal.size() >= 2 && decimal[decimal.size() - 2] == '.' ? std::optional(tenths)
                                                                   : std::nullopt;
}

// Whether the entry's points times its scale are the pixels of its file.
constexpr bool hasPixels(const CatalogueEntry& entry, PixelSize pixels) {
  const auto cross = entry.size.find('x');
  if (cross == std::string_view::npos || entry.scale.size() != 2 || entry.scale[1] != 'x') {
    return false;
  }
  const auto width = tenthsOf(entry.size.substr(0, cross));
  const auto height = tenthsOf(entry.size.substr(cross + 1));
  const std::int64_t scale = entry.scale[0] - '0';
  return width && height && *width * scale == pixels.width * 10 &&
         *height * scale == pixels.height * 10;
}

constexpr bool everyFileNamedOnceAtItsSize(const auto& sizes, const auto& catalogue) {
  if (sizes.size() != catalogue.size()) return false;
  return std::ranges::all_of(sizes, [&](const IconSize& file) {
    const auto names = [&](const CatalogueEntry& entry) {
      return entry.filename.ends_with(".png") &&
             entry.filename.substr(0, entry.filename.size() - 4) == file.name;
    };
    const auto entry = std::ranges::find_if(catalogue, names);
    return std::ranges::count_if(catalogue, names) == 1 && hasPixels(*entry, file.pixels);
  });
}

constexpr bool everyNameOnce(const auto& sizes) {
  return std::ranges::all_of(sizes, [&](const IconSize& row) {
    return std::ranges::count(sizes, row.name, &IconSize::name) == 1;
  });
}

}  // namespace tessarine
