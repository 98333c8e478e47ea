#pragma once

#include <hwy/highway.h>

#include <cstdint>
#include <vector>

namespace tessarine::testing {

// Those that Highway compiles loops for, each as its bit.
inline std::vector<std::int64_t> instructionSets() {
  std::vector<std::int64_t> sets;
  for (std::int64_t rest = HWY_TARGETS; rest != 0; rest &= rest - 1) sets.push_back(rest & -rest);
  return sets;
}

}  // namespace tessarine::testing
