#include "platform/vips/svg_addresses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace tessarine {

bool operator==(const StyleAddress& address, const StyleAddress& other) {
  return address.property == other.property && address.address == other.address;
}

namespace {

std::vector<StyleAddress> addressesIn(std::string_view style) {
  std::vector<StyleAddress> addresses;
  while (const auto found = takeAddress(style)) addresses.push_back(*found);
  return addresses;
}

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(SVGAddresses, AreReadWithTheirProperties) {
  EXPECT_THAT(addressesIn("url(#a)"), ElementsAre(StyleAddress{"", "#a"}));
  EXPECT_THAT(addressesIn("fill: URL( #a ) none"), ElementsAre(StyleAddress{"fill", "#a"}));
  EXPECT_THAT(addressesIn("url( '#a) \"b' )"), ElementsAre(StyleAddress{"", "#a) \"b"}));
  EXPECT_THAT(addressesIn("url(\"#a')b\")"), ElementsAre(StyleAddress{"", "#a')b"}));
  EXPECT_THAT(addressesIn("fill:url(#a); mask :url(#b)"),
              ElementsAre(StyleAddress{"fill", "#a"}, StyleAddress{"mask", "#b"}));
  EXPECT_THAT(addressesIn("a{fill:url(#a)} b{mask:url(#b)}"),
              ElementsAre(StyleAddress{"fill", "#a"}, StyleAddress{"mask", "#b"}));
  EXPECT_THAT(addressesIn("filter:url(#a) url(#b)"),
              ElementsAre(StyleAddress{"filter", "#a"}, StyleAddress{"", "#b"}));
  EXPECT_THAT(addressesIn("rotate(9)"), IsEmpty());
}

TEST(SVGAddresses, MayLackTheirEnd) {
  EXPECT_THAT(addressesIn("url("), ElementsAre(StyleAddress{"", ""}));
  EXPECT_THAT(addressesIn("url( #a"), ElementsAre(StyleAddress{"", "#a"}));
  EXPECT_THAT(addressesIn("url('#a)"), ElementsAre(StyleAddress{"", "#a)"}));
}

TEST(SVGAddresses, OfPartsOfDataAreTold) {
  EXPECT_TRUE(refersIntoData("data:image/svg+xml,x#a"));
  EXPECT_TRUE(refersIntoData(" Da\tta:,x#a"));
  EXPECT_FALSE(refersIntoData("data:font/woff;base64,d09GRg=="));
  EXPECT_FALSE(refersIntoData("#data:a"));
  EXPECT_FALSE(refersIntoData("a#data:"));
  EXPECT_FALSE(refersIntoData(""));
}

TEST(SVGAddresses, OfStyleSheetsInDataAreTold) {
  EXPECT_TRUE(importsData("@import 'data:,a'"));
  EXPECT_TRUE(importsData("@import 'a.css'; @IMPORT url(DATA:,a);"));
  EXPECT_TRUE(importsData("@import 'da\tta:,a'"));
  EXPECT_FALSE(importsData("@import 'a.css'; @font-face{src:url(data:,a)}"));
  EXPECT_FALSE(importsData("@font-face{src:url(data:,a)}"));
}

}  // namespace
}  // namespace tessarine
