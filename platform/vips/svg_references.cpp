#include "platform/vips/svg_references.h"

#include <algorithm>
#include <array>

namespace tessarine {

namespace {

// Each use of these is drawn into a picture of its own, which takes as long as so many elements.
constexpr std::array<std::string_view, 3> costlyElements{"pattern", "mask", "filter"};
constexpr std::int64_t costlyWeight = 100;

constexpr std::int64_t beyondAllLimits = std::int64_t{1} << 40;

}  // namespace

// The drawing itself is the first node.
SVGReferences::SVGReferences() : nodes_(1), open_(1, 0) {}

void SVGReferences::open(std::string_view element, std::string_view id) {
  std::size_t node = open_.back();
  if (!id.empty()) {
    node = nodes_.size();
    nodes_[open_.back()].inside.push_back(node);
    nodes_.emplace_back();
    byId_.emplace(id, node);
  }
  const bool isCostly = std::ranges::find(costlyElements, element) != costlyElements.end();
  const std::int64_t weight = isCostly ? costlyWeight : 1;
  nodes_[node].own += weight;
  elements_ += weight;
  open_.push_back(node);
}

void SVGReferences::close() {
  if (open_.size() > 1) open_.pop_back();
}

void SVGReferences::refersTo(std::string_view id) {
  nodes_[open_.back()].targets.emplace_back(id);
}

void SVGReferences::refersIn(std::string_view value) {
  static constexpr std::string_view begin = "url(";
  for (auto at = value.find(begin); at != std::string_view::npos; at = value.find(begin)) {
    value.remove_prefix(at + begin.size());
    const auto text = value.substr(0, value.find(')'));
    const auto hash = text.find('#');
    if (hash == std::string_view::npos) continue;
    refersTo(text.substr(hash + 1, text.find_last_not_of(" '\"") - hash));
  }
}

std::vector<std::size_t> SVGReferences::childrenOf(std::size_t node) const {
  std::vector<std::size_t> children = nodes_[node].inside;
  for (const auto& target : nodes_[node].targets) {
    if (const auto found = byId_.find(target); found != byId_.end()) {
      children.push_back(found->second);
    }
  }
  return children;
}

std::int64_t SVGReferences::count() const {
  enum class State { unseen, open, done };
  struct Visit {
    std::size_t node;
    std::vector<std::size_t> children;
    std::size_t next = 0;
  };
  std::vector<State> states(nodes_.size(), State::unseen);
  std::vector<std::int64_t> costs(nodes_.size(), 0);
  // By hand and not by recursion: a hostile chain is as long as its file.
  std::vector<Visit> path;
  path.push_back({0, childrenOf(0)});
  states[0] = State::open;
  while (!path.empty()) {
    Visit& visit = path.back();
    if (visit.next < visit.children.size()) {
      const auto child = visit.children[visit.next++];
      // One that is open refers to itself, which no drawing follows.
      if (states[child] != State::unseen) continue;
      states[child] = State::open;
      path.push_back({child, childrenOf(child)});
      continue;
    }
    std::int64_t cost = nodes_[visit.node].own;
    for (const auto child : visit.children) {
      cost = std::min(cost + costs[child], beyondAllLimits);
    }
    costs[visit.node] = cost;
    states[visit.node] = State::done;
    path.pop_back();
  }
  return costs[0] - elements_;
}

}  // namespace tessarine
