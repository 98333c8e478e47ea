#include "platform/vips/svg_references.h"

#include <algorithm>
#include <array>
#include <span>

namespace tessarine {

namespace {

// Each use of these is drawn into a picture of its own, which takes as long as so many elements.
constexpr std::array<std::string_view, 3> costlyElements{"pattern", "mask", "filter"};
constexpr std::int64_t costlyWeight = 100;

// What is made of colours alone is not painted itself.
constexpr std::array<std::string_view, 3> unpaintedElements{"linearGradient", "radialGradient",
                                                            "stop"};

constexpr std::int64_t beyondAllLimits = std::int64_t{1} << 40;
// More are not even kept.
constexpr std::int64_t mostReferences = 1'000'000;

bool isOneOf(std::span<const std::string_view> names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

}  // namespace

// The drawing itself is the first node.
SVGReferences::SVGReferences() : nodes_(1), open_{{0, 0, false}} {}

void SVGReferences::open(std::string_view element, std::string_view id) {
  std::size_t node = open_.back().node;
  // Of several elements with one id, the first is meant.
  const bool isNode = !id.empty() && !nodes_[nodeOf(id)].isDefined;
  if (isNode) {
    const std::size_t parent = node;
    node = nodeOf(id);
    nodes_[parent].children.push_back(node);
    nodes_[node].isDefined = nodes_[node].isOpen = true;
  }
  const std::int64_t weight = isOneOf(costlyElements, element) ? costlyWeight : 1;
  nodes_[node].own += weight;
  elements_ += weight;
  open_.push_back({node, paints_.size(), isNode});
  if (isOneOf(unpaintedElements, element)) return;
  for (const auto paint : paints_) {
    if (++references_ >= mostReferences) return;
    // None is painted with what it is a part of.
    if (!nodes_[paint].isOpen) nodes_[node].children.push_back(paint);
  }
}

void SVGReferences::close() {
  if (open_.size() == 1) return;
  const Element& element = open_.back();
  if (element.isNode) nodes_[element.node].isOpen = false;
  paints_.resize(element.paints);
  open_.pop_back();
}

void SVGReferences::refersTo(std::string_view id) {
  refer(nodeOf(id));
}

void SVGReferences::isPaintedWith(std::string_view id) {
  paints_.push_back(nodeOf(id));
  refer(paints_.back());
}

std::size_t SVGReferences::nodeOf(std::string_view id) {
  const auto [found, isNew] = byId_.emplace(id, nodes_.size());
  if (isNew) nodes_.emplace_back();
  return found->second;
}

void SVGReferences::refer(std::size_t node) {
  if (++references_ < mostReferences) nodes_[open_.back().node].children.push_back(node);
}

std::int64_t SVGReferences::count() const {
  if (references_ >= mostReferences) return beyondAllLimits;
  enum class State { unseen, open, done };
  struct Visit {
    std::size_t node;
    std::size_t next = 0;
  };
  std::vector<State> states(nodes_.size(), State::unseen);
  std::vector<std::int64_t> costs(nodes_.size(), 0);
  // By hand and not by recursion: a hostile chain is as long as its file.
  std::vector<Visit> path{{0}};
  states[0] = State::open;
  while (!path.empty()) {
    Visit& visit = path.back();
    const Node& node = nodes_[visit.node];
    if (visit.next < node.children.size()) {
      const auto child = node.children[visit.next++];
      if (states[child] == State::open) return beyondAllLimits;
      if (states[child] == State::done) continue;
      states[child] = State::open;
      path.push_back({child});
      continue;
    }
    std::int64_t cost = node.own;
    for (const auto child : node.children) cost = std::min(cost + costs[child], beyondAllLimits);
    costs[visit.node] = cost;
    states[visit.node] = State::done;
    path.pop_back();
  }
  return costs[0] - elements_;
}

}  // namespace tessarine
