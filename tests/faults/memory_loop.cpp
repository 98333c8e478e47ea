// Refuses the large requests for memory of the program and of its decoder one after the other, and
// then all memory above a rising limit. A run may write its files, leave out those whose bitmap
// cannot be had, refuse the picture, or stop silently; what it has written must be whole. Prints
// the figures.
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>

#include "platform/isolation/decoding_process.h"
#include "platform/isolation/isolated_pictures.h"
#include "tests/faults/expected_icons.h"
#include "tests/headless/program.h"
#include "tests/headless/source_picture.h"

namespace {

namespace fs = std::filesystem;
using namespace tessarine;
using namespace tessarine::testing;

class MemoryLoop {
 public:
  MemoryLoop() { expected_ = run({}, {}); }

  void refuseToTheProgram(bool onward) {
    refuseRequests("refused to the program", onward, [&](const auto& label) {
      run(label, [&] {
        for (const auto& [name, value] : refusal_) ::setenv(name.c_str(), value.c_str(), 1);
      });
    });
  }

  // A drawing takes the most.
  void refuseToTheDecoder(bool onward) {
    const std::string picture = TESSARINE_SOURCE_DIR "/tests/platform/vips/samples/drawing.svg";
    const Decoded whole = IsolatedPictures(TESSARINE_HEADLESS).read(picture);
    refuseRequests("refused to its decoder", onward,
                   [&](const auto& label) { decode(label, picture, whole); });
  }

  void climbTheLadder() {
    constexpr rlim_t step = rlim_t{1} << 20;
    int runs = 0;
    wholeInARow_ = 0;
    decoderIsLimited_ = true;
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
    std::printf("%-34s %4d\n", "of which the decoder stopped", decodersCrashed_);
  }

  int failures() const { return failures_; }

 private:
  // Calls `attempt` with every request refused in its turn, until there are no more.
  template <class Attempt>
  void refuseRequests(const std::string& label, bool onward, Attempt attempt) {
    const fs::path report = source_.root() / "report";
    int at = 0, met = 0;
    while (met >= at) {
      ++at;
      met = 0;
      refusal_ = {{"LD_PRELOAD", MEMORY_SHIM},
                  {"MEMORY_AT", std::to_string(at)},
                  {"MEMORY_REPORT", report}};
      if (onward) refusal_["MEMORY_ONWARD"] = "1";
      writeFile(report, {reinterpret_cast<const char*>(&met), sizeof met});
      attempt(label + ", request " + std::to_string(at) + (onward ? " and on" : ""));
      std::memcpy(&met, contentsOf(report).data(), sizeof met);
    }
    std::printf("%-34s %4d\n", (label + (onward ? ", and on" : "")).c_str(), at - 1);
  }

  // By a decoder whose environment, which the program does not pass on, refuses the request.
  void decode(const std::string& label, const std::string& picture, const Decoded& whole) {
    const fs::path decoder = source_.root() / "decoder", status = source_.root() / "status";
    std::string script = "#!/bin/sh\n";
    for (const auto& [name, value] : refusal_) script += name + "=\"" + value + "\" ";
    script += TESSARINE_HEADLESS " \"$@\"\necho $? >" + status.string() + "\n";
    writeFile(decoder, script);
    fs::permissions(decoder, fs::perms::owner_all);
    writeFile(status, "");
    const Decoded decoded = IsolatedPictures(decoder).read(picture);
    const bool crashed = decoded.refusal == decoderCrashed;
    const bool stopped = crashed && contentsOf(status) == std::to_string(128 + SIGABRT) + "\n";
    const bool read = decoded.picture && std::ranges::equal(decoded.picture->bitmap->pixels(),
                                                            whole.picture->bitmap->pixels());
    const bool refused = !decoded.picture && !crashed && decoded.refusal != decoderTookTooLong;
    if (read || refused || stopped) return;
    ++failures_;
    std::printf("%s: %s, status %s\n", label.c_str(), decoded.refusal.c_str(),
                contentsOf(status).c_str());
  }

  Files run(const std::string& label, const std::function<void()>& prepare) {
    const auto folder = source_.icons();
    fs::remove_all(folder);
    const Outcome outcome = runProgram({"macos", source_.picture(), folder}, prepare);
    const Files files = filesIn(folder);
    if (!expected_.empty()) judge(label, outcome, files);
    return files;
  }

  void judge(const std::string& label, const Outcome& outcome, const Files& files) {
    const bool decoderCrashed =
        outcome.error.ends_with(std::string(tessarine::decoderCrashed) + "\n");
    decodersCrashed_ += decoderCrashed;
    const bool refused = outcome.status == 2 && linesOf(outcome.error).size() == 1 &&
                         (!decoderCrashed || decoderIsLimited_);
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
  std::map<std::string, std::string> refusal_;  // as variables of the environment
  Files expected_;
  bool decoderIsLimited_ = false;
  int decodersCrashed_ = 0;
  int failures_ = 0;
  int wholeInARow_ = 0;
};

}  // namespace

int main() {
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  MemoryLoop loop;
  for (const bool onward : {false, true}) {
    loop.refuseToTheProgram(onward);
    loop.refuseToTheDecoder(onward);
  }
  loop.climbTheLadder();
  std::printf("%-34s %4d\n", "failures", loop.failures());
  return loop.failures() == 0 ? 0 : 1;
}
