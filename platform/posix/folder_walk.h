#pragma once

#include <sys/types.h>

#include <deque>
#include <string>
#include <vector>

#include "platform/posix/beneath.h"
#include "platform/posix/descriptor.h"

namespace tessarine {

// One path resolved by hand. Each folder on the way is held open, and `..` goes back to the one
// before instead of asking the file system, where the folder may have been moved meanwhile.
class FolderWalk {
 public:
  // `root` must outlive the walk.
  explicit FolderWalk(const Descriptor& root) : root_(root) {}

  Opened open(const std::string& path, int flags, mode_t mode);

 private:
  int here() const { return folders_.empty() ? root_.number() : folders_.back().number(); }
  // Each answers with the error, or 0. `follow` tells by `isLink` whether it took the component.
  int putBefore(const std::string& path);
  int follow(const std::string& component, bool& isLink);
  int enter(const std::string& component);

  const Descriptor& root_;
  std::vector<Descriptor> folders_;
  std::deque<std::string> rest_;
  int links_ = 0;
};

}  // namespace tessarine
