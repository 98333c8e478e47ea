#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/posix/descriptor.h"

namespace tessarine {

// When a temporary file gets its name, which no other file has.
enum class Naming {
  late,   // when it is whole, where the file system has files without a name
  early,  // when it is made
};

// A new file in a folder, which is to take the place of another one. Named late, it leaves nothing
// behind when the program is killed before. It is removed at the end unless it has taken its place.
class TemporaryFile {
 public:
  // `folder` must outlive the file.
  TemporaryFile(const Descriptor& folder, Naming naming) : folder_(folder), naming_(naming) {}
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  // To be called in this order, each after the success of the one before. The error, or 0.
  int open();
  // On the disk, as far as the file system can tell; `mode` as given, or as any new file gets.
  int fill(std::span<const std::uint8_t> bytes, std::optional<mode_t> mode);
  // Closes the file; it has its name afterwards.
  int publish();
  // `name` is a plain one in the folder.
  int replace(const std::string& name);

 private:
  int giveName();

  const Descriptor& folder_;
  Naming naming_;
  Descriptor file_;
  std::string name_;
  // Whether `name_` is in the folder.
  bool named_ = false;
};

}  // namespace tessarine
