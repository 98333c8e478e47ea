#include "tests/support/temporary_folder.h"

#include <stdlib.h>
#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>

namespace tessarine::testing {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::string name = fs::temp_directory_path() / "tessarine-XXXXXX";
  if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string contentsOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read " + file.string());
  return {std::istreambuf_iterator<char>(stream), {}};
}

void writeFile(const fs::path& file, std::string_view contents) {
  std::ofstream stream(file, std::ios::binary);
  if (!(stream << contents).flush()) throw std::runtime_error("cannot write " + file.string());
}

std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename());
  }
  std::ranges::sort(names);
  return names;
}

std::string snapshot(const fs::path& folder, const fs::path& except) {
  std::map<fs::path, std::string> lines;
  for (auto entry = fs::recursive_directory_iterator(folder); entry != fs::end(entry); ++entry) {
    const fs::path& path = entry->path();
    if (path == except) {
      entry.disable_recursion_pending();
      continue;
    }
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) throw std::runtime_error("cannot look at a file");
    std::ostringstream line;
    line << std::oct << status.st_mode << std::dec << ' ' << status.st_uid << ' ' << status.st_nlink
         << ' ' << status.st_mtim.tv_sec << '.' << status.st_mtim.tv_nsec << ' ';
    if (entry->is_symlink()) {
      line << fs::read_symlink(path);
    } else if (entry->is_regular_file()) {
      line << contentsOf(path);
    }
    lines[path] = line.str();
  }
  std::ostringstream text;
  for (const auto& [path, line] : lines) text << path << ' ' << line << '\n';
  return text.str();
}

}  // namespace tessarine::testing
