#include "platform/posix/confinement.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>

#include "platform/posix/descriptor.h"

namespace tessarine {

namespace {

using Rights = std::uint64_t;

// Rights that the kernel's header may be too old to name.
constexpr Rights changeParent = Rights{1} << 13;
constexpr Rights truncation = Rights{1} << 14;
constexpr Rights deviceControl = Rights{1} << 15;
constexpr Rights everyTCP = (Rights{1} << 0) | (Rights{1} << 1);  // to bind and to connect
// To reach processes that are not confined: by abstract sockets, and by signals.
constexpr Rights everyScope = (Rights{1} << 0) | (Rights{1} << 1);

struct RulesetAttributes {
  Rights files;
  Rights net;
  Rights scoped;
};

// What the kernel can take away, by the version of its interface.
RulesetAttributes takenBy(long version) {
  Rights files = changeParent - 1;
  if (version >= 2) files |= changeParent;
  if (version >= 3) files |= truncation;
  if (version >= 5) files |= deviceControl;
  return {files, version >= 4 ? everyTCP : 0, version >= 6 ? everyScope : 0};
}

constexpr Rights reading = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr Rights writing = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_MAKE_REG |
                           LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_REMOVE_FILE |
                           truncation;
// The only rights that a rule for a file, not a folder, may name.
constexpr Rights ofFiles =
    LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_WRITE_FILE | truncation;

class Ruleset {
 public:
  explicit Ruleset(const RulesetAttributes& taken)
      : taken_(taken),
        ruleset_(
            static_cast<int>(::syscall(SYS_landlock_create_ruleset, &taken_, sizeof taken_, 0))) {}

  void allow(const std::vector<std::string>& paths, Rights rights) const {
    for (const std::string& path : paths) allow(path, rights);
  }
  bool enforce() const {
    return ruleset_ && ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           ::syscall(SYS_landlock_restrict_self, ruleset_.number(), 0) == 0;
  }

 private:
  void allow(const std::string& path, Rights rights) const {
    const Descriptor place(::open(path.c_str(), O_PATH | O_CLOEXEC));
    struct stat status;
    if (!place || ::fstat(place.number(), &status) != 0) return;
    landlock_path_beneath_attr rule{};
    rule.allowed_access = rights & taken_.files & (S_ISDIR(status.st_mode) ? ~Rights{0} : ofFiles);
    rule.parent_fd = place.number();
    ::syscall(SYS_landlock_add_rule, ruleset_.number(), LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
  }

  RulesetAttributes taken_;
  Descriptor ruleset_;
};

}  // namespace

bool confine(const Confinement& confinement) {
  const long version =
      ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
  if (version < 1) return false;
  const Ruleset ruleset(takenBy(version));
  ruleset.allow(confinement.readable, reading);
  ruleset.allow(confinement.writable, writing);
  return ruleset.enforce();
}

}  // namespace tessarine
