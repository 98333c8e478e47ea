#include "platform/posix/beneath.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/folder_walk.h"
#include "platform/posix/retried.h"

namespace tessarine {

namespace {

int openByKernel(int folder, const std::string& path, int flags, mode_t mode) {
  open_how how{};
  how.flags = static_cast<unsigned>(flags);
  how.mode = mode;
  how.resolve = RESOLVE_BENEATH | RESOLVE_NO_MAGICLINKS;
  return static_cast<int>(::syscall(SYS_openat2, folder, path.c_str(), &how, sizeof how));
}

// The kernel lacks the call (ENOSYS), a container's filter forbids it (EPERM), or a rename nearby
// kept the kernel from vouching for the path (EAGAIN). The walk repeats any true EPERM.
bool leftToTheWalk(int error) {
  return error == ENOSYS || error == EPERM || error == EAGAIN;
}

}  // namespace

Opened openBeneath(const Descriptor& folder, const std::string& path, int flags, mode_t mode,
                   Resolution resolution) {
  flags |= O_CLOEXEC;
  if (resolution == Resolution::kernel) {
    Descriptor file(retried([&] { return openByKernel(folder.number(), path, flags, mode); }));
    if (file) return {std::move(file), 0};
    if (!leftToTheWalk(errno)) return {{}, errno};
  }
  return FolderWalk(folder).open(path, flags, mode);
}

}  // namespace tessarine
