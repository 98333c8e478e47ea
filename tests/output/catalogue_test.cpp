#include "output/catalogue.h"

#include <gtest/gtest.h>

#include <array>

namespace tessarine {
namespace {

constexpr std::array<CatalogueEntry, 2> twoEntries{{
    {"a.png", "watch", "appLauncher", "2x", "40x40", "38mm"},
    {.filename = "b.png", .scale = "1x"},
}};

constexpr std::array<CatalogueEntry, 1> oneEntry{{{.filename = "a.png"}}};

TEST(Catalogue, LaysOutEveryKeyOfEveryEntry) {
  EXPECT_EQ(catalogueText<twoEntries>, R"({
  "images" : [
    {
      "filename" : "a.png",
      "idiom" : "watch",
      "role" : "appLauncher",
      "scale" : "2x",
      "size" : "40x40",
      "subtype" : "38mm"
    },
    {
      "filename" : "b.png",
      "scale" : "1x"
    }
  ],
  "info" : {
    "author" : "xcode",
    "version" : 1
  }
})");
}

TEST(Catalogue, PutsNoCommaBehindTheOnlyEntryAndItsOnlyKey) {
  EXPECT_TRUE(catalogueText<oneEntry>.starts_with(
      "{\n  \"images\" : [\n    {\n      \"filename\" : \"a.png\"\n    }\n  ],\n"));
}

TEST(Catalogue, IsPlainTextWithoutAFinalLineFeed) {
  for (const char c : catalogueText<twoEntries>) {
    EXPECT_TRUE(c == '\n' || (c >= ' ' && c <= '~')) << static_cast<int>(c);
  }
  EXPECT_TRUE(catalogueText<twoEntries>.ends_with("}"));
}

}  // namespace
}  // namespace tessarine
