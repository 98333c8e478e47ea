#include "tests/faults/fault_loop.h"

#include <algorithm>
#include <stdexcept>

#include "tests/faults/expected_icons.h"
#include "tests/faults/fault.h"
#include "tests/headless/source_picture.h"

namespace tessarine::testing {

namespace {

namespace fs = std::filesystem;

// A file without a name gets one just before it is closed and renamed: two calls to be killed at.
constexpr int mostLeftovers = 2;

class FaultLoop {
 public:
  explicit FaultLoop(const Scenario& scenario) : scenario_(scenario) {
    // Of one colour, so that a run costs little but its calls.
    drawPNG(source_.picture(), 16, 16, [](int, int) { return Pixel{200, 30, 60, 255}; });
    // As its own kind, nothing is done to any call.
    const FaultedRun clean = runIn("clean", {{"none", ""}, 1});
    if (clean.outcome.status != 0) throw std::runtime_error("the run without faults fails");
    expected_.whole = filesIn(source_.root() / "clean");
    if (scenario.overOldFiles) {
      for (const auto& [name, contents] : expected_.whole) {
        expected_.before[name] = "old contents of " + name;
      }
      tally_.calls = runIn("again", {{"none", ""}, 1}).met;
    } else {
      tally_.calls = clean.met;
    }
  }

  Tally run() {
    for (const FaultKind& kind : errorKinds) {
      const int runs = tally_.runs;
      for (const bool onward : {false, true}) {
        for (Fault fault{kind, firstCall(kind), onward}; disturbBy(fault); ++fault.at) {
        }
      }
      expectSome(kind, tally_.runs - runs);
    }
    for (const FaultKind& kind : killKinds) {
      const int kills = tally_.kills;
      for (Fault fault{kind, firstCall(kind)}; killBy(fault); ++fault.at) {
      }
      expectSome(kind, tally_.kills - kills);
    }
    if (scenario_.unnamedFiles && tally_.leftovers > mostLeftovers) {
      tally_.failures.push_back(scenario_.name + ": temporary files left by too many kills");
    }
    return std::move(tally_);
  }

 private:
  // Kinds that apply to writes alone number fewer calls, so they always begin with the first.
  int firstCall(const FaultKind& kind) const {
    const bool writesAlone = kind.code == "short" || kind.code == "tear";
    if (scenario_.lastCalls == 0 || writesAlone) return 1;
    return std::max(1, tally_.calls - scenario_.lastCalls + 1);
  }

  FaultedRun runIn(const std::string& name, const Fault& fault) {
    const fs::path folder = source_.root() / name;
    fs::remove_all(folder);
    if (!expected_.before.empty()) fs::create_directory(folder);
    for (const auto& [file, contents] : expected_.before) writeFile(folder / file, contents);
    return again(name, fault);
  }

  FaultedRun again(const std::string& name, const Fault& fault) {
    std::vector<std::string> arguments{scenario_.word, source_.picture(), source_.root() / name};
    arguments.insert(arguments.end(), scenario_.rows.begin(), scenario_.rows.end());
    return runWithFault(arguments, fault, scenario_.unnamedFiles);
  }

  void expectSome(const FaultKind& kind, int disturbed) {
    if (disturbed == 0) {
      tally_.failures.push_back(scenario_.name + ", " + kind.name + ": no call was disturbed");
    }
  }

  void note(const Fault& fault, const std::string& failure) {
    if (!failure.empty()) {
      tally_.failures.push_back(scenario_.name + ", " + fault.label() + ": " + failure);
    }
  }

  // Whether there was such a call, be it one that the kind leaves alone.
  bool disturbBy(const Fault& fault) {
    const FaultedRun run = runIn("icons", fault);
    note(fault, faultIn(run, fault, expected_, source_.root() / "icons"));
    if (run.disturbed > 0) ++tally_.runs;
    return run.met >= fault.at;
  }

  bool killBy(const Fault& fault) {
    const FaultedRun run = runIn("icons", fault);
    if (run.outcome.status == 0) return false;
    ++tally_.kills;
    note(fault, damageIn(run, expected_, source_.root() / "icons"));
    const FaultedRun second = again("icons", {{"none", ""}, 1});
    Files files = filesIn(source_.root() / "icons");
    if (withoutTemporary(files)) ++tally_.leftovers;
    if (second.outcome.status != 0 || files != expected_.whole) {
      note(fault, "a second run does not restore every byte");
    }
    return true;
  }

  const Scenario& scenario_;
  const SourcePicture source_;
  ExpectedIcons expected_;
  Tally tally_;
};

}  // namespace

Tally disturb(const Scenario& scenario) {
  return FaultLoop(scenario).run();
}

}  // namespace tessarine::testing
