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
  // The element that began last has this address in an attribute of that value.
  void refersIn(std::string_view value);
  void refersTo(std::string_view id);

  // Elements to be drawn because something refers to them, up to a number beyond all limits.
  std::int64_t count() const;

 private:
  struct Node {
    std::int64_t own = 0;
    std::vector<std::size_t> inside;
    std::vector<std::string> targets;
  };

  std::vector<std::size_t> childrenOf(std::size_t node) const;

  std::vector<Node> nodes_;
  std::unordered_map<std::string, std::size_t> byId_;
  std::vector<std::size_t> open_;
  std::int64_t elements_ = 0;
};

}  // namespace tessarine
