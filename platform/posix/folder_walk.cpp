#include "platform/posix/folder_walk.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <string_view>
#include <utility>

#include "platform/posix/retried.h"

namespace tessarine {

namespace {

// The limit of the kernel's own resolution.
constexpr int maximumLinks = 40;

}  // namespace

// The components of a path, ahead of those that are left.
int FolderWalk::putBefore(const std::string& path) {
  if (path.empty()) return ENOENT;
  if (path.size() >= PATH_MAX) return ENAMETOOLONG;
  if (path.front() == '/') return EXDEV;
  std::vector<std::string> components;
  std::string_view left = path;
  while (!left.empty()) {
    const std::size_t end = left.find('/');
    if (end != 0) components.emplace_back(left.substr(0, end));
    // A separator at the end says that the component before it must be a folder.
    left = end == std::string_view::npos ? "" : left.substr(end + 1);
    if (end != std::string_view::npos && left.empty()) components.emplace_back(".");
  }
  rest_.insert(rest_.begin(), components.begin(), components.end());
  return 0;
}

int FolderWalk::follow(const std::string& component, bool& isLink) {
  std::array<char, PATH_MAX> target;
  const auto length = ::readlinkat(here(), component.c_str(), target.data(), target.size());
  isLink = length >= 0;
  if (!isLink) return 0;
  if (++links_ > maximumLinks) return ELOOP;
  return putBefore(std::string(target.data(), static_cast<std::size_t>(length)));
}

int FolderWalk::enter(const std::string& component) {
  if (component == ".") return 0;
  if (component == "..") {
    if (folders_.empty()) return EXDEV;
    folders_.pop_back();
    return 0;
  }
  const int flags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
  Descriptor folder(retried([&] { return ::openat(here(), component.c_str(), flags); }));
  if (!folder) return errno;
  folders_.push_back(std::move(folder));
  return 0;
}

Opened FolderWalk::open(const std::string& path, int flags, mode_t mode) {
  int error = putBefore(path);
  while (error == 0) {
    std::string component = std::move(rest_.front());
    rest_.pop_front();
    bool isLink = false;
    error = follow(component, isLink);
    if (isLink || error != 0) continue;
    if (rest_.empty() && component != "..") {
      Descriptor file(
          retried([&] { return ::openat(here(), component.c_str(), flags | O_NOFOLLOW, mode); }));
      if (!file) return {{}, errno};
      return {std::move(file), 0};
    }
    error = enter(component);
    if (rest_.empty()) rest_.emplace_back(".");
  }
  return {{}, error};
}

}  // namespace tessarine
