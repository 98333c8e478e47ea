// Disturbs every call that the program makes on its output: "full" for all five generators, "short"
// for what tells most in half a minute. Prints the figures, and what went wrong.
#include <cstdio>
#include <future>
#include <string_view>
#include <vector>

#include "tests/faults/fault_loop.h"

namespace {

using tessarine::testing::Scenario;
using tessarine::testing::Tally;

std::vector<std::string> customRows(int count) {
  std::vector<std::string> rows;
  for (int i = 1; i <= count; ++i) {
    rows.insert(rows.end(), {"icon " + std::to_string(i), "24", "16"});
  }
  return rows;
}

std::vector<Scenario> fullLoop() {
  return {
      {"custom", "custom", customRows(8)},
      {"apple-watch", "apple-watch", {}},
      {"macos", "macos", {}},
      {"macos over old files", "macos", {}, true},
      {"macos, unnamed files refused", "macos", {}, true, 0, false},
      {"ios", "ios", {}},
      {"windows10", "windows10", {}},
  };
}

std::vector<Scenario> shortLoop() {
  return {
      {"custom", "custom", customRows(2)},
      {"custom over old files", "custom", customRows(1), true},
      {"apple-watch, its last calls", "apple-watch", {}, false, 9},
      {"unnamed files refused", "apple-watch", {}, true, 9, false},
  };
}

void print(const char* name, const Tally& tally) {
  std::printf("%-28s %6d %6d %6d %9d %9zu\n", name, tally.calls, tally.runs, tally.kills,
              tally.leftovers, tally.failures.size());
}

}  // namespace

int main(int argc, char** argv) {
  const bool full = argc == 2 && std::string_view(argv[1]) == "full";
  const auto scenarios = full ? fullLoop() : shortLoop();
  std::vector<std::future<Tally>> tallies;
  for (const Scenario& scenario : scenarios) {
    tallies.push_back(std::async(std::launch::async, tessarine::testing::disturb, scenario));
  }
  // Each line as soon as it is known, also into a file.
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  std::printf("%-28s %6s %6s %6s %9s %9s\n", "run", "calls", "faults", "kills", "leftovers",
              "failures");
  Tally all;
  for (std::size_t i = 0; i < scenarios.size(); ++i) {
    const Tally tally = tallies[i].get();
    print(scenarios[i].name.c_str(), tally);
    all.calls += tally.calls;
    all.runs += tally.runs;
    all.kills += tally.kills;
    all.leftovers += tally.leftovers;
    all.failures.insert(all.failures.end(), tally.failures.begin(), tally.failures.end());
  }
  print("all", all);
  for (const std::string& failure : all.failures) std::printf("%s\n", failure.c_str());
  return all.failures.empty() ? 0 : 1;
}
