#pragma once

#include <string>
#include <vector>

namespace tessarine {

// What a confined process keeps, each with everything beneath it. Paths that do not exist are
// passed over.
struct Confinement {
  std::vector<std::string> readable;
  // Folders in which files and folders may be made and written, and files removed.
  std::vector<std::string> writable;
};

// Takes from this process, for good, the opening, making and removing of all other files, the
// starting of programs, TCP, and signals and abstract sockets to other processes. To be called
// before any thread is started; files already open stay so. A kernel that lacks some of it takes
// the rest; false when it takes nothing at all.
bool confine(const Confinement& confinement);

}  // namespace tessarine
