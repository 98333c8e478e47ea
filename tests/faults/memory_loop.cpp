// Refuses the program's large requests for memory one after the other, and then all memory above a
// rising limit. A run may write its files, leave out those whose bitmap cannot be had, refuse the
// picture, or stop silently; what it has written must be whole. Prints the figures.
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "tests/faults/expected_icons.h"
#include "tests/headless/program.h"
#include "tests/headless/source_picture.h"

namespace {

using namespace tessarine::testing;

class MemoryLoop {
 public:
  MemoryLoop() { expected_ = run({}, {}); }

  void refuseRequests(const char* onward) {
    int runs = 0;
    for (int at = 1;; ++at) {
      const auto report = source_.root() / "report";
      const Files files = run("request " + std::to_string(at) + (onward ? " and on" : ""), [&] {
        ::setenv("LD_PRELOAD", MEMORY_SHIM, 1);
        ::setenv("MEMORY_AT", std::to_string(at).c_str(), 1);
        ::setenv("MEMORY_REPORT", report.c_str(), 1);
        if (onward != nullptr) ::setenv("MEMORY_ONWARD", onward, 1);
      });
      int met = 0;
      // Nothing is reported by a run that was stopped, which had met the request.
      const bool told = static_cast<bool>(std::ifstream(report) >> met);
      if (told && met < at) break;
      ++runs;
    }
    std::printf("%-34s %4d\n",
                onward ? "large requests refused from one on" : "large requests refused", runs);
  }

  void climbTheLadder() {
    constexpr rlim_t step = rlim_t{1} << 20;
    int runs = 0;
    wholeInARow_ = 0;
    // To where enough runs in a row have had all that they need.
    for (rlim_t limit = 32 * step; wholeInARow_ < 16; limit += step) {
      const auto prepare = [&] {
        const rlimit bound{limit, limit};
        ::setrlimit(RLIMIT_AS, &bound);
      };
      // Below, the libraries cannot even be loaded; one of them then waits for ever.
      const auto impatient = [&] {
        prepare();
        ::alarm(20);
      };
      if (runProgram({"--version"}, impatient).status != 0) continue;
      run(std::to_string(limit / step) + " MB", prepare);
      ++runs;
    }
    std::printf("%-34s %4d\n", "limits of address space", runs);
  }

  int failures() const { return failures_; }

 private:
  Files run(const std::string& label, const std::function<void()>& prepare) {
    const auto folder = source_.icons();
    std::filesystem::remove_all(folder);
    const Outcome outcome = runProgram({"macos", source_.picture(), folder}, prepare);
    const Files files = filesIn(folder);
    if (!expected_.empty()) judge(label, outcome, files);
    return files;
  }

  void judge(const std::string& label, const Outcome& outcome, const Files& files) {
    const bool refused = outcome.status == 2 && linesOf(outcome.error).size() == 1;
    const bool silent = outcome.error.empty() && outcome.output.empty();
    const bool stopped = outcome.status == 128 + SIGABRT && silent;
    const bool finished = outcome.status == (files == expected_ ? 0 : 1) && silent;
    wholeInARow_ = finished && files == expected_ ? wholeInARow_ + 1 : 0;
    bool whole = !refused || files.empty();
    for (const auto& [name, contents] : files) {
      const auto file = expected_.find(name);
      whole = whole && file != expected_.end() && file->second == contents;
    }
    if (whole && (refused || stopped || finished)) return;
    ++failures_;
    std::printf("%s: status %d%s\n%s%s", label.c_str(), outcome.status,
                whole ? "" : ", files not as they should be", outcome.output.c_str(),
                outcome.error.c_str());
  }

  const SourcePicture source_{200, 200};
  Files expected_;
  int failures_ = 0;
  int wholeInARow_ = 0;
};

}  // namespace

int main() {
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  MemoryLoop loop;
  loop.refuseRequests(nullptr);
  loop.refuseRequests("1");
  loop.climbTheLadder();
  std::printf("%-34s %4d\n", "failures", loop.failures());
  return loop.failures() == 0 ? 0 : 1;
}
