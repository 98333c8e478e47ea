#include "platform/vips/svg_references.h"

#include <gtest/gtest.h>

namespace tessarine {
namespace {

void addElement(SVGReferences& references, std::string_view element, std::string_view id = {}) {
  references.open(element, id);
  references.close();
}

TEST(SVGReferences, CountWhatTheyBringWithAllInside) {
  SVGReferences references;
  references.open("g", "a");
  addElement(references, "rect");
  references.refersTo("b");
  references.close();
  addElement(references, "rect", "b");
  references.open("use", {});
  references.refersTo("a");
  references.refersTo("missing");
  references.close();
  // The last brings two elements and a rectangle more, which is also drawn inside the first.
  EXPECT_EQ(references.count(), 4);
}

TEST(SVGReferences, MeanTheFirstOfTheirName) {
  SVGReferences references;
  addElement(references, "rect", "a");
  references.open("g", "a");
  addElement(references, "rect");
  references.close();
  references.open("use", {});
  references.refersTo("a");
  references.close();
  EXPECT_EQ(references.count(), 1);
}

TEST(SVGReferences, OfPaintCountForEveryElementInside) {
  SVGReferences references;
  addElement(references, "marker", "a");
  references.open("g", {});
  references.isPaintedWith("a");
  addElement(references, "rect");
  addElement(references, "rect");
  addElement(references, "stop");
  references.close();
  addElement(references, "rect");
  EXPECT_EQ(references.count(), 3);
}

TEST(SVGReferences, OfPaintDoNotCountForThePaintItself) {
  SVGReferences references;
  references.open("g", {});
  references.isPaintedWith("a");
  references.open("marker", "a");
  addElement(references, "rect");
  references.close();
  references.close();
  EXPECT_EQ(references.count(), 2);
}

TEST(SVGReferences, ToWhatIsDrawnIntoAPictureOfItsOwnCountAHundredTimes) {
  for (const auto* element : {"pattern", "mask", "filter"}) {
    SVGReferences references;
    addElement(references, element, "a");
    references.refersTo("a");
    EXPECT_EQ(references.count(), 100) << element;
  }
}

constexpr std::int64_t never = 1'000'000'000;

TEST(SVGReferences, InACircleAreBeyondAllLimits) {
  SVGReferences references;
  references.open("g", "a");
  references.refersTo("b");
  references.close();
  references.open("g", "b");
  references.refersTo("a");
  references.close();
  EXPECT_GT(references.count(), never);
}

TEST(SVGReferences, OfAMillionAreBeyondAllLimits) {
  SVGReferences references;
  for (int i = 0; i < 1'000'000; ++i) references.refersTo("missing");
  EXPECT_GT(references.count(), never);
}

// Whether they are followed or not: they are gone through for every element inside.
TEST(SVGReferences, OfPaintCountAmongTheMillion) {
  SVGReferences references;
  references.open("g", {});
  for (int i = 0; i < 300'000; ++i) references.isPaintedWith("a");
  references.open("marker", "a");
  for (int i = 0; i < 3; ++i) addElement(references, "rect");
  EXPECT_GT(references.count(), never);
}

}  // namespace
}  // namespace tessarine
