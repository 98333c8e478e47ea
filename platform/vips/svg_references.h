#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tessarine {

// Counts what a drawing asks for when each of its references is followed: a short drawing whose
// elements use each other in steps asks for more than can ever be drawn.
class SVGReferences {
 public:
  SVGReferences();

  // An element begins, with its id or the empty text, and ends.
  void open(std::string_view element, std::string_view id);
  void close();
  // The element that began last refers to that of this id; or is painted with it, and so may be all
  // elements inside.
  void refersTo(std::string_view id);
  void isPaintedWith(std::string_view id);

  // Elements to be drawn because something refers to them, up to a number beyond all limits, which
  // stands also for references in a circle.
  std::int64_t count() const;

 private:
  // What an id stands for, whether it has been met or only been referred to.
  struct Node {
    std::int64_t own = 0;
    bool isDefined = false;
    bool isOpen = false;
    std::vector<std::size_t> children;
  };
  struct Element {
    std::size_t node;
    std::size_t paints;
    bool isNode;
  };

  std::size_t nodeOf(std::string_view id);
  void refer(std::size_t node);

  std::vector<Node> nodes_;
  std::unordered_map<std::string, std::size_t> byId_;
  std::vector<Element> open_;
  // Of all open elements.
  std::vector<std::size_t> paints_;
  std::int64_t elements_ = 0;
  std::int64_t references_ = 0;
};

}  // namespace tessarine
