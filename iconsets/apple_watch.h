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
inline constexpr std::array<IconSize, 11> appleWatchIconSizes{{
    {"38mm@2x", {48, 48}},
    {"40mm@2x", {55, 55}},
    {"44mm@2x", {58, 58}},
    {"44mm@3x", {87, 87}},
    {"38mm@2x-2", {80, 80}},
    {"42mm@2x", {88, 88}},
    {"44mm@2x-1", {100, 100}},
    {"38mm@2x-1", {172, 172}},
    {"42mm@2x-1", {196, 196}},
    {"44mm@2x-2", {216, 216}},
    {"AppStore", {1024, 1024}},
}};
inline constexpr auto appleWatchIconNames = namesOf(appleWatchIconSizes);

// The companion-settings images are for every face and so have no subtype.
inline constexpr std::array<CatalogueEntry, 11> appleWatchCatalogue{{
    {"38mm@2x.png", "watch", "notificationCenter", "2x", "24x24", "38mm"},
    {"40mm@2x.png", "watch", "notificationCenter", "2x", "27.5x27.5", "42mm"},
    {"44mm@2x.png", "watch", "companionSettings", "2x", "29x29", ""},
    {"44mm@3x.png", "watch", "companionSettings", "3x", "29x29", ""},
    {"38mm@2x-2.png", "watch", "appLauncher", "2x", "40x40", "38mm"},
    {"42mm@2x.png", "watch", "appLauncher", "2x", "44x44", "40mm"},
    {"44mm@2x-1.png", "watch", "appLauncher", "2x", "50x50", "44mm"},
    {"38mm@2x-1.png", "watch", "quickLook", "2x", "86x86", "38mm"},
    {"42mm@2x-1.png", "watch", "quickLook", "2x", "98x98", "42mm"},
    {"44mm@2x-2.png", "watch", "quickLook", "2x", "108x108", "44mm"},
    {"AppStore.png", "watch-marketing", "", "1x", "1024x1024", ""},
}};
inline constexpr std::string_view appleWatchContentsJSON = catalogueText<appleWatchCatalogue>;

inline constexpr IconSet appleWatchIconSet{appleWatchIconNames, appleWatchIconSizes,
                                           appleWatchContentsJSON};

static_assert(appleWatchIconNames.size() == 11);
static_assert(everyNameOnce(appleWatchIconSizes));
static_assert(everyFileNamedOnceAtItsSize(appleWatchIconSizes, appleWatchCatalogue));
static_assert(appleWatchContentsJSON.size() == 1927);
static_assert(std::ranges::count(appleWatchContentsJSON, '\n') == 91);

}  // namespace tessarine
