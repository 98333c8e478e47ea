#include "platform/vips/svg_addresses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(SVGAddresses, AreReadAsStyleSheetsWriteThem) {
  EXPECT_THAT(addressesIn("fill:url(#a)"), ElementsAre("#a"));
  EXPECT_THAT(addressesIn("fill: URL( #a ) none"), ElementsAre("#a"));
  EXPECT_THAT(addressesIn("url( '#a) \"b' )"), ElementsAre("#a) \"b"));
  EXPECT_THAT(addressesIn("url(\"#a')b\")"), ElementsAre("#a')b"));
  EXPECT_THAT(addressesIn("a{fill:url(#a)} b{fill:url(#b)}"), ElementsAre("#a", "#b"));
  EXPECT_THAT(addressesIn("rotate(9)"), IsEmpty());
}

TEST(SVGAddresses, AreReadWithoutTheirEscapes) {
  EXPECT_THAT(addressesIn(R"(u\72 l(#\61 b\c3))"), ElementsAre("#ab\u00c3"));
  EXPECT_THAT(addressesIn(R"(\000075rl(\#a\)b))"), ElementsAre("#a)b"));
  EXPECT_THAT(addressesIn(R"(url('\27 \'#a'))"), ElementsAre("''#a"));
  EXPECT_THAT(addressesIn("url('#a\\\nb')"), ElementsAre("#ab"));
  EXPECT_THAT(addressesIn("url(#a\\"), ElementsAre("#a"));
}

TEST(SVGAddresses, AreFoundBehindWhatOnlyLooksLikeOne) {
  EXPECT_THAT(addressesIn("/* url( */ fill:url(#a)"), ::testing::Contains("#a"));
  EXPECT_THAT(addressesIn("content:'url('; fill:url(#a)"), ::testing::Contains("#a"));
}

TEST(SVGAddresses, OfPartsOfDataAreTold) {
  EXPECT_TRUE(refersIntoData("data:image/svg+xml,x#a"));
  EXPECT_TRUE(
      refersIntoData(" \x01"
                     "Da\tta:,x#a"));
  EXPECT_FALSE(refersIntoData("data:font/woff;base64,d09GRg=="));
  EXPECT_FALSE(refersIntoData("#data:a"));
}

TEST(SVGAddresses, OfStyleSheetsInDataAreTold) {
  EXPECT_TRUE(importsData("@import 'data:,a'"));
  EXPECT_TRUE(importsData(R"(@\49mport url(d\61 ta:,a))"));
  EXPECT_FALSE(importsData("@import 'a.css'"));
  EXPECT_FALSE(importsData("@font-face{src:url(data:,a)}"));
}

}  // namespace
}  // namespace tessarine
