#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/posix/descriptor.h"

namespace tessarine {

// A new file in a folder, which is to take the place of another one. Where the file system can, it
// has no name until it is whole, so that nothing stays behind when the program is killed; its name
// is then one that no other has. It is removed at the end unless it has taken its place.
class TemporaryFile {
 public:
  // `folder` must outlive the file.
  explicit TemporaryFile(const Descriptor& folder) : folder_(folder) {}
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  // To be called in this order, each after the success of the one before. The error, or 0.
  int open();
  // On the disk, as far as the file system can tell; `mode` as given, or as any new file gets.
  int fill(std::span<const std::uint8_t> bytes, std::optional<mode_t> mode);
  int close();
  // `name` is a plain one in the folder.
  int replace(const std::string& name);

 private:
  int giveName();

  const Descriptor& folder_;
  Descriptor file_;
  std::string name_;
  // Whether `name_` is in the folder.
  bool named_ = false;
};

}  // namespace tessarine
