#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "iconsets/icon_set.h"
#include "iconsets/proofs.h"
#include "output/catalogue.h"

namespace tessarine {

// The names carry the conventions of the catalogue that reads them, not their sizes: "Icon-60" is
// the 20-point image at 3x, and a suffix "-1" marks a second copy for a second slot.
inline constexpr std::array<IconSize, 23> iOSIconSizes{{
    {"iTunesArtwork", {512, 512}},
    {"iTunesArtwork@2x", {1024, 1024}},
    {"iTunesArtwork@2x-1", {1024, 1024}},
    {"Icon-60", {60, 60}},
    {"Icon-60@2x", {120, 120}},
    {"Icon-Small-40@3x-1", {120, 120}},
    {"Icon-60@3x", {180, 180}},
    {"Icon-60@3x-1", {180, 180}},
    {"Icon-76", {76, 76}},
    {"Icon-76@2x", {152, 152}},
    {"Icon-83.5@2x", {167, 167}},
    {"Icon-Small-20", {20, 20}},
    {"Icon-Small-42", {40, 40}},
    {"Icon-Small-40", {40, 40}},
    {"Icon-Small-41", {40, 40}},
    {"Icon-Small-40@2x", {80, 80}},
    {"Icon-Small-40@2x-1", {80, 80}},
    {"Icon-Small-40@3x", {120, 120}},
    {"Icon-Small", {29, 29}},
    {"Icon-Small-1", {29, 29}},
    {"Icon-Small@2x", {58, 58}},
    {"Icon-Small@2x-1", {58, 58}},
    {"Icon-Small@3x", {87, 87}},
}};
inline constexpr auto iOSIconNames = namesOf(iOSIconSizes);

inline constexpr std::array<CatalogueEntry, 23> iOSCatalogue{{
    {.filename = "Icon-Small-42.png", .idiom = "iphone", .scale = "2x", .size = "20x20"},
    {.filename = "Icon-60.png", .idiom = "iphone", .scale = "3x", .size = "20x20"},
    {.filename = "Icon-Small.png", .idiom = "iphone", .scale = "1x", .size = "29x29"},
    {.filename = "Icon-Small@2x.png", .idiom = "iphone", .scale = "2x", .size = "29x29"},
    {.filename = "Icon-Small@3x.png", .idiom = "iphone", .scale = "3x", .size = "29x29"},
    {.filename = "Icon-Small-40@2x.png", .idiom = "iphone", .scale = "2x", .size = "40x40"},
    {.filename = "Icon-Small-40@3x.png", .idiom = "iphone", .scale = "3x", .size = "40x40"},
    {.filename = "Icon-60@2x.png", .idiom = "iphone", .scale = "2x", .size = "60x60"},
    {.filename = "Icon-60@3x.png", .idiom = "iphone", .scale = "3x", .size = "60x60"},
    {.filename = "Icon-Small-20.png", .idiom = "ipad", .scale = "1x", .size = "20x20"},
    {.filename = "Icon-Small-40.png", .idiom = "ipad", .scale = "2x", .size = "20x20"},
    {.filename = "Icon-Small-1.png", .idiom = "ipad", .scale = "1x", .size = "29x29"},
    {.filename = "Icon-Small@2x-1.png", .idiom = "ipad", .scale = "2x", .size = "29x29"},
    {.filename = "Icon-Small-41.png", .idiom = "ipad", .scale = "1x", .size = "40x40"},
    {.filename = "Icon-Small-40@2x-1.png", .idiom = "ipad", .scale = "2x", .size = "40x40"},
    {.filename = "Icon-76.png", .idiom = "ipad", .scale = "1x", .size = "76x76"},
    {.filename = "Icon-76@2x.png", .idiom = "ipad", .scale = "2x", .size = "76x76"},
    {.filename = "Icon-83.5@2x.png", .idiom = "ipad", .scale = "2x", .size = "83.5x83.5"},
    {.filename = "iTunesArtwork@2x-1.png",
     .idiom = "ios-marketing",
     .scale = "1x",
     .size = "1024x1024"},
    {.filename = "Icon-Small-40@3x-1.png", .idiom = "car", .scale = "2x", .size = "60x60"},
    {.filename = "Icon-60@3x-1.png", .idiom = "car", .scale = "3x", .size = "60x60"},
    {.filename = "iTunesArtwork.png", .idiom = "mac", .scale = "1x", .size = "512x512"},
    {.filename = "iTunesArtwork@2x.png", .idiom = "mac", .scale = "2x", .size = "512x512"},
}};
inline constexpr std::string_view iOSContentsJSON = catalogueText<iOSCatalogue>;

inline constexpr IconSet iOSIconSet{iOSIconNames, iOSIconSizes, iOSContentsJSON};

static_assert(iOSIconNames.size() == 23);
static_assert(everyNameOnce(iOSIconSizes));
static_assert(everyFileNamedOnceAtItsSize(iOSIconSizes, iOSCatalogue));
static_assert(iOSContentsJSON.size() == 2921);
static_assert(std::ranges::count(iOSContentsJSON, '\n') == 145);

}  // namespace tessarine
