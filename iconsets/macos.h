#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "iconsets/icon_set.h"
#include "iconsets/proofs.h"
#include "output/catalogue.h"

namespace tessarine {

// Largest first, each 1x before its 2x.
inline constexpr std::array<IconSize, 10> macOSIconSizes{{
    {"Icon-512", {512, 512}},
    {"Icon-512@2x", {1024, 1024}},
    {"Icon-256", {256, 256}},
    {"Icon-256@2x", {512, 512}},
    {"Icon-128", {128, 128}},
    {"Icon-128@2x", {256, 256}},
    {"Icon-32", {32, 32}},
    {"Icon-32@2x", {64, 64}},
    {"Icon-16", {16, 16}},
    {"Icon-16@2x", {32, 32}},
}};
inline constexpr auto macOSIconNames = namesOf(macOSIconSizes);

// Smallest first.
inline constexpr std::array<CatalogueEntry, 10> macOSCatalogue{{
    {.filename = "Icon-16.png", .idiom = "mac", .scale = "1x", .size = "16x16"},
    {.filename = "Icon-16@2x.png", .idiom = "mac", .scale = "2x", .size = "16x16"},
    {.filename = "Icon-32.png", .idiom = "mac", .scale = "1x", .size = "32x32"},
    {.filename = "Icon-32@2x.png", .idiom = "mac", .scale = "2x", .size = "32x32"},
    {.filename = "Icon-128.png", .idiom = "mac", .scale = "1x", .size = "128x128"},
    {.filename = "Icon-128@2x.png", .idiom = "mac", .scale = "2x", .size = "128x128"},
    {.filename = "Icon-256.png", .idiom = "mac", .scale = "1x", .size = "256x256"},
    {.filename = "Icon-256@2x.png", .idiom = "mac", .scale = "2x", .size = "256x256"},
    {.filename = "Icon-512.png", .idiom = "mac", .scale = "1x", .size = "512x512"},
    {.filename = "Icon-512@2x.png", .idiom = "mac", .scale = "2x", .size = "512x512"},
}};
inline constexpr std::string_view macOSContentsJSON = catalogueText<macOSCatalogue>;

inline constexpr IconSet macOSIconSet{macOSIconNames, macOSIconSizes, macOSContentsJSON};

static_assert(macOSIconNames.size() == 10);
static_assert(everyNameOnce(macOSIconSizes));
static_assert(everyFileNamedOnceAtItsSize(macOSIconSizes, macOSCatalogue));
static_assert(macOSContentsJSON.size() == 1264);
static_assert(std::ranges::count(macOSContentsJSON, '\n') == 67);

}  // namespace tessarine
