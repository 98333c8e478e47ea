#include "platform/posix/replacement.h"

#include "platform/posix/temporary_file.h"

namespace tessarine {

int replaceFile(const Descriptor& folder, const std::string& name,
                std::span<const std::uint8_t> bytes, std::optional<mode_t> mode) {
  TemporaryFile file(folder);
  int error = file.open();
  if (error == 0) error = file.fill(bytes, mode);
  if (error == 0) error = file.close();
  if (error == 0) error = file.replace(name);
  return error;
}

}  // namespace tessarine
