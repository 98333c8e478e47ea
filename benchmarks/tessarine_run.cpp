// Cuts a job's files as the program does: one icon set for each folder, through the adapters that
// the program uses.
#include <list>
#include <map>
#include <memory>
#include <utility>

#include "benchmarks/job.h"
#include "iconsets/icon_set_generator.h"
#include "intake/icon_info.h"
#include "platform/headless/headless_host.h"
#include "platform/isolation/isolated_pictures.h"
#include "platform/posix/granting_panel.h"
#include "platform/posix/standard_console.h"

namespace {

using namespace tessarine;

// A set as rows of a table, in their order.
struct TableSet {
  std::list<std::string> texts;
  std::vector<std::string_view> names;
  std::vector<IconSize> sizes;
};

std::map<std::string, TableSet> setsOf(const benchmarks::Job& job) {
  std::map<std::string, TableSet> sets;
  for (const benchmarks::Row& row : job.rows) {
    const std::size_t slash = row.path.find('/');
    TableSet& set = sets[row.path.substr(0, slash)];
    const std::string_view name = set.texts.emplace_back(row.path.substr(slash + 1));
    set.names.push_back(name);
    set.sizes.push_back({name, {row.width, row.height}});
  }
  return sets;
}

}  // namespace

int main(int argc, char** argv) {
  benchmarks::Job job = benchmarks::readJob(argc, argv);
  const auto sets = setsOf(job);

  IsolatedPictures pictures;
  GrantedFiles files;
  NoWorkspace workspace;
  StandardConsole console;
  StandardErrorAlert alert;
  IconInfo iconInfo;
  const auto source = std::make_shared<std::vector<std::uint8_t>>(std::move(job.source));
  iconInfo.imageData = ByteBuffer(*source, source);
  benchmarks::timed([&] {
    for (const auto& [folder, set] : sets) {
      FolderArgument argument(job.folder + "/" + folder);
      GrantingPanel panel(argument, files);
      Platform platform{pictures, files, panel, workspace, console, alert};
      generateIconSet(platform, iconInfo, {set.names, set.sizes, {}});
    }
  });
}
