// Reads a picture and cuts all four sets of it, again and again in one process; every file must be
// written, and the memory and the descriptors that it holds must not grow after the tenth run. The
// number of runs is an argument.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "headless/monitored_files.h"
#include "headless/named_sets.h"
#include "iconsets/icon_set_generator.h"
#include "platform/headless/headless_host.h"
#include "platform/isolation/isolated_pictures.h"
#include "platform/posix/granted_files.h"
#include "platform/posix/granting_panel.h"
#include "platform/posix/standard_console.h"
#include "tests/headless/source_picture.h"

namespace {

using namespace tessarine;
namespace fs = std::filesystem;

constexpr int settled = 10;
constexpr long allowedGrowth = 5L * 1024 * 1024;

struct Holding {
  long bytes;
  long descriptors;
};

Holding holding() {
  long pages = 0;
  std::ifstream("/proc/self/statm").ignore(100, ' ') >> pages;
  return {pages * ::sysconf(_SC_PAGESIZE),
          static_cast<long>(std::distance(fs::directory_iterator("/proc/self/fd"), {}))};
}

// How many sets lack a file.
int cutAllSets(const std::string& picture, const fs::path& folder) {
  IsolatedPictures pictures(TESSARINE_HEADLESS);
  IconInfo iconInfo;
  iconInfo.imageData = pictures.tiffRepresentation(pictures.decodeFile(picture).value());
  GrantedFiles granted;
  NoWorkspace workspace;
  StandardConsole console;
  StandardErrorAlert alert;
  int incomplete = 0;
  for (const NamedSet& named : namedSets) {
    FolderArgument argument(folder / named.name);
    GrantingPanel panel(argument, granted);
    MonitoredFiles files(granted, fileCount(named.set));
    Platform platform{pictures, files, panel, workspace, console, alert};
    generateIconSet(platform, iconInfo, named.set);
    if (!files.complete()) ++incomplete;
  }
  return incomplete;
}

bool isToBeShown(int run, int runs) {
  return run == 1 || run == settled || run % 100 == 0 || run == runs;
}

}  // namespace

int main(int argc, char** argv) {
  const int runs = argc == 2 ? std::atoi(argv[1]) : 1000;
  const testing::SourcePicture source(512, 512);
  Holding atRest{};
  Holding most{};
  int incomplete = 0;
  std::printf("%6s %14s %12s\n", "run", "resident kB", "descriptors");
  for (int run = 1; run <= runs; ++run) {
    incomplete += cutAllSets(source.picture(), source.icons());
    const Holding now = holding();
    if (run <= settled) atRest = most = now;
    most = {std::max(most.bytes, now.bytes), std::max(most.descriptors, now.descriptors)};
    if (isToBeShown(run, runs)) {
      std::printf("%6d %14ld %12ld\n", run, now.bytes / 1024, now.descriptors);
      std::fflush(stdout);
    }
  }
  const long growth = most.bytes - atRest.bytes;
  std::printf("sets that lack a file: %d\n", incomplete);
  std::printf("growth after run %d: at most %ld kB and %ld descriptors\n", settled, growth / 1024,
              most.descriptors - atRest.descriptors);
  const bool steady = growth <= allowedGrowth && most.descriptors == atRest.descriptors;
  return incomplete == 0 && steady ? 0 : 1;
}
