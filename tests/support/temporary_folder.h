#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine::testing {

// A new folder of the system's temporary files, removed with everything in it at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

std::string contentsOf(const std::filesystem::path& file);
void writeFile(const std::filesystem::path& file, std::string_view contents);

// The folder's entries, sorted.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

// Everything beneath a folder but `except`, one line an entry: kind, mode, owner, links, times and
// contents. Equal texts mean that nothing was touched.
std::string snapshot(const std::filesystem::path& folder, const std::filesystem::path& except = {});

}  // namespace tessarine::testing
