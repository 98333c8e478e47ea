#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "iconsets/icon_set.h"
#include "iconsets/proofs.h"
#include "output/catalogue.h"

namespace tessarine {

// The names are the catalogue's own labels and do not always follow the watch face: "40mm@2x" is
// the 42 mm image and "42mm@2x" the 40 mm one; "-1" and "-2" tell apart further images of a face.
inline constexpr std::array appleWatchIconSizes{
    IconSize{"38mm@2x", {48, 48}},      IconSize{"40mm@2x", {55, 55}},
    IconSize{"44mm@2x", {58, 58}},      IconSize{"44mm@3x", {87, 87}},
    IconSize{"38mm@2x-2", {80, 80}},    IconSize{"42mm@2x", {88, 88}},
    IconSize{"44mm@2x-1", {100, 100}},  IconSize{"38mm@2x-1", {172, 172}},
    IconSize{"42mm@2x-1", {196, 196}},  IconSize{"44mm@2x-2", {216, 216}},
    IconSize{"AppStore", {1024, 1024}},
};
inline constexpr auto appleWatchIconNames = namesOf(appleWatchIconSizes);

// The companion-settings images are for every face and so have no subtype.
inline constexpr std::array appleWatchCatalogue{
    CatalogueEntry{.filename = "38mm@2x.png",
                   .idiom = "watch",
                   .role = "notificationCenter",
                   .scale = "2x",
                   .size = "24x24",
                   .subtype = "38mm"},
    CatalogueEntry{.filename = "40mm@2x.png",
                   .idiom = "watch",
                   .role = "notificationCenter",
                   .scale = "2x",
                   .size = "27.5x27.5",
                   .subtype = "42mm"},
    CatalogueEntry{.filename = "44mm@2x.png",
                   .idiom = "watch",
                   .role = "companionSettings",
                   .scale = "2x",
                   .size = "29x29"},
    CatalogueEntry{.filename = "44mm@3x.png",
                   .idiom = "watch",
                   .role = "companionSettings",
                   .scale = "3x",
                   .size = "29x29"},
    CatalogueEntry{.filename = "38mm@2x-2.png",
                   .idiom = "watch",
                   .role = "appLauncher",
                   .scale = "2x",
                   .size = "40x40",
                   .subtype = "38mm"},
    CatalogueEntry{.filename = "42mm@2x.png",
                   .idiom = "watch",
                   .role = "appLauncher",
                   .scale = "2x",
                   .size = "44x44",
                   .subtype = "40mm"},
    CatalogueEntry{.filename = "44mm@2x-1.png",
                   .idiom = "watch",
                   .role = "appLauncher",
                   .scale = "2x",
                   .size = "50x50",
                   .subtype = "44mm"},
    CatalogueEntry{.filename = "38mm@2x-1.png",
                   .idiom = "watch",
                   .role = "quickLook",
                   .scale = "2x",
                   .size = "86x86",
                   .subtype = "38mm"},
    CatalogueEntry{.filename = "42mm@2x-1.png",
                   .idiom = "watch",
                   .role = "quickLook",
                   .scale = "2x",
                   .size = "98x98",
                   .subtype = "42mm"},
    CatalogueEntry{.filename = "44mm@2x-2.png",
                   .idiom = "watch",
                   .role = "quickLook",
                   .scale = "2x",
                   .size = "108x108",
                   .subtype = "44mm"},
    CatalogueEntry{
        .filename = "AppStore.png", .idiom = "watch-marketing", .scale = "1x", .size = "1024x1024"},
};
inline constexpr std::string_view appleWatchContentsJSON = catalogueText<appleWatchCatalogue>;

inline constexpr IconSet appleWatchIconSet{appleWatchIconNames, appleWatchIconSizes,
                                           appleWatchContentsJSON};

static_assert(appleWatchIconNames.size() == 11);
static_assert(everyNameOnce(appleWatchIconSizes));
static_assert(everyFileNamedOnceAtItsSize(appleWatchIconSizes, appleWatchCatalogue));
static_assert(appleWatchContentsJSON.size() == 1927);
static_assert(std::ranges::count(appleWatchContentsJSON, '\n') == 91);

}  // namespace tessarine
