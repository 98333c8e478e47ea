#pragma once

#include <cerrno>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/files.h"
#include "platform/posix/beneath.h"
#include "platform/posix/descriptor.h"

namespace tessarine {

// Writes only beneath the folder of the present grant, which is held as an open descriptor: a
// folder that is renamed meanwhile is still the one that was granted. Without a grant, and for any
// path that leads out of the folder, every write fails, whoever runs the program.
// Only plain files are written. A link that leads to one inside the folder is followed by a write
// in place and replaced by an atomic one; a hard link is a plain file like any other.
class GrantedFiles final : public Files {
 public:
  explicit GrantedFiles(Resolution resolution = Resolution::kernel) : resolution_(resolution) {}

  // Replaces the present grant. Paths to write must begin with this text and a separator. A folder
  // that cannot be opened grants nothing.
  void grant(const std::string& folder);
  void revoke();

  std::optional<std::string> writeInPlace(const std::string& path,
                                          std::span<const std::uint8_t> bytes) override;
  std::optional<std::string> writeAtomically(const std::string& path,
                                             std::span<const std::uint8_t> bytes) override;

 private:
  // A path below the granted folder, or why there is none.
  struct Place {
    std::string path;
    int error = 0;
  };
  Place placeOf(const std::string& path) const;

  // Each answers with the error, or 0; the path is one below the granted folder.
  int overwrite(const std::string& path, std::span<const std::uint8_t> bytes) const;
  int replace(const std::string& path, std::span<const std::uint8_t> bytes) const;

  Resolution resolution_;
  std::string folderPath_;
  Descriptor folder_;
  // Why there is no folder.
  int refusal_ = EXDEV;
};

}  // namespace tessarine
