#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "iconsets/icon_set.h"
#include "iconsets/proofs.h"

namespace tessarine {

// Tiles and application icons run 400, 200, 100, 150, 125; splash screens, badges and package logos
// run 400, 200, 150, 125, 100.
inline constexpr std::array<IconSize, 56> windows10Icons{{
    {"SmallTile.scale-400", {284, 284}},
    {"SmallTile.scale-200", {142, 142}},
    {"SmallTile.scale-100", {71, 71}},
    {"SmallTile.scale-150", {107, 107}},
    {"SmallTile.scale-125", {89, 89}},
    {"MediumTile.scale-400", {600, 600}},
    {"MediumTile.scale-200", {300, 300}},
    {"MediumTile.scale-100", {150, 150}},
    {"MediumTile.scale-150", {225, 225}},
    {"MediumTile.scale-125", {188, 188}},
    {"WideTile.scale-400", {1240, 600}},
    {"WideTile.scale-200", {620, 300}},
    {"WideTile.scale-100", {310, 150}},
    {"WideTile.scale-150", {465, 225}},
    {"WideTile.scale-125", {388, 188}},
    {"LargeTile.scale-400", {1240, 1240}},
    {"LargeTile.scale-200", {620, 620}},
    {"LargeTile.scale-100", {310, 310}},
    {"LargeTile.scale-150", {465, 465}},
    {"LargeTile.scale-125", {388, 388}},
    {"AppIcon.scale-400", {176, 176}},
    {"AppIcon.scale-200", {88, 88}},
    {"AppIcon.scale-100", {44, 44}},
    {"AppIcon.scale-150", {66, 66}},
    {"AppIcon.scale-125", {55, 55}},
    {"AppIcon.targetSize-256", {256, 256}},
    {"AppIcon.targetSize-48", {48, 48}},
    {"AppIcon.targetSize-16", {16, 16}},
    {"AppIcon.targetSize-32", {32, 32}},
    {"AppIcon.targetSize-24", {24, 24}},
    {"AppIcon.unplatedTargetSize-256", {256, 256}},
    {"AppIcon.unplatedTargetSize-48", {48, 48}},
    {"AppIcon.unplatedTargetSize-16", {16, 16}},
    {"AppIcon.unplatedTargetSize-32", {32, 32}},
    {"AppIcon.unplatedTargetSize-24", {24, 24}},
    {"AppIcon.lightUnplatedTargetSize-256", {256, 256}},
    {"AppIcon.lightUnplatedTargetSize-48", {48, 48}},
    {"AppIcon.lightUnplatedTargetSize-16", {16, 16}},
    {"AppIcon.lightUnplatedTargetSize-32", {32, 32}},
    {"AppIcon.lightUnplatedTargetSize-24", {24, 24}},
    {"SplashScreen.scale-400", {2480, 1200}},
    {"SplashScreen.scale-200", {1240, 600}},
    {"SplashScreen.scale-150", {930, 450}},
    {"SplashScreen.scale-125", {775, 375}},
    {"SplashScreen.scale-100", {620, 300}},
    {"BadgeLogo.scale-400", {96, 96}},
    {"BadgeLogo.scale-200", {48, 48}},
    {"BadgeLogo.scale-150", {36, 36}},
    {"BadgeLogo.scale-125", {30, 30}},
    {"BadgeLogo.scale-100", {24, 24}},
    {"PackageLogo.scale-400", {200, 200}},
    {"PackageLogo.scale-200", {100, 100}},
    {"PackageLogo.scale-150", {75, 75}},
    {"PackageLogo.scale-125", {63, 63}},
    {"PackageLogo.scale-100", {50, 50}},
    {"LockScreenLogo.scale-200", {48, 48}},
}};
inline constexpr auto windows10IconNames = namesOf(windows10Icons);

// The platform declares these files in its package manifest, not in a catalogue.
inline constexpr IconSet windows10IconSet{windows10IconNames, windows10Icons, std::nullopt};

namespace detail {

// The number behind the last hyphen of a file name stem.
constexpr std::int64_t labelOf(std::string_view name) {
  std::int64_t label = 0;
  for (const char digit : name.substr(name.rfind('-') + 1)) label = label * 10 + (digit - '0');
  return label;
}

// The sizes at scale 100.
constexpr std::array scale100{
    IconSize{"SmallTile", {71, 71}},      IconSize{"MediumTile", {150, 150}},
    IconSize{"WideTile", {310, 150}},     IconSize{"LargeTile", {310, 310}},
    IconSize{"AppIcon", {44, 44}},        IconSize{"SplashScreen", {620, 300}},
    IconSize{"BadgeLogo", {24, 24}},      IconSize{"PackageLogo", {50, 50}},
    IconSize{"LockScreenLogo", {24, 24}},
};

// A row labelled with a scale is its asset's size times the scale, halves rounded up; every other
// row is labelled with its pixels.
constexpr bool hasLabelledSize(const IconSize& row) {
  const std::int64_t label = labelOf(row.name);
  const auto dot = row.name.find('.');
  if (!row.name.substr(dot).starts_with(".scale-")) return row.pixels == PixelSize{label, label};
  const auto base = std::ranges::find(scale100, row.name.substr(0, dot), &IconSize::name);
  const auto scaled = [label](std::int64_t pixels) { return (pixels * label + 50) / 100; };
  return base != scale100.end() &&
         row.pixels == PixelSize{scaled(base->pixels.width), scaled(base->pixels.height)};
}

}  // namespace detail

static_assert(windows10Icons.size() == 56);
static_assert(everyNameOnce(windows10Icons));
static_assert(std::ranges::all_of(windows10Icons, detail::hasLabelledSize));

}  // namespace tessarine
