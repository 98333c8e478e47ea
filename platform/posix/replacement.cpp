#include "platform/posix/replacement.h"

#include <cerrno>

#include "platform/posix/temporary_file.h"

namespace tessarine {

int replaceFile(const Descriptor& folder, const std::string& name,
                std::span<const std::uint8_t> bytes, std::optional<mode_t> mode) {
  const auto attempt = [&](Naming naming) {
    TemporaryFile file(folder, naming);
    int error = file.open();
    if (error == 0) error = file.fill(bytes, mode);
    if (error == 0) error = file.publish();
    if (error == 0) error = file.replace(name);
    return error;
  };
  const int error = attempt(Naming::late);
  // So answer file systems that make files without a name but give them none, and a missing /proc.
  // Whatever else answers so does it again.
  const bool again = error == EPERM || error == EOPNOTSUPP || error == ENOENT;
  return again ? attempt(Naming::early) : error;
}

}  // namespace tessarine
