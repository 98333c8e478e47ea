#include "headless/prepared_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "platform/posix/retried.h"

namespace tessarine {

namespace fs = std::filesystem;

PreparedFolder::PreparedFolder(const fs::path& folder) {
  fs::path path;
  for (const fs::path& name : folder) {
    path /= name;
    // One that cannot be created shows itself when the files are written.
    if (retried([&] { return ::mkdir(path.c_str(), 0777); }) == 0) created_.push_back(path);
  }
}

PreparedFolder::~PreparedFolder() {
  // Not fs::remove, which tries first to unlink, as a confined process may not.
  std::for_each(created_.rbegin(), created_.rend(),
                [](const fs::path& path) { ::rmdir(path.c_str()); });
}

fs::path PreparedFolder::parentOfCreated() const {
  if (created_.empty()) return {};
  const fs::path parent = created_.front().parent_path();
  return parent.empty() ? "." : parent;
}

}  // namespace tessarine
