#include "headless/picture_intake.h"

#include <filesystem>
#include <system_error>

#include "headless/complaint.h"
#include "platform/posix/confinement.h"
#include "platform/posix/one_line.h"

namespace tessarine {

namespace {

void confineTo(const std::string& folder) {
  // Where it cannot be created, every write tells so.
  std::error_code ignored;
  std::filesystem::create_directories(folder, ignored);
  Confinement confinement{{}, {folder}};
#ifdef __SANITIZE_ADDRESS__
  // Where its search for leaks, at the end, reads of this process.
  confinement.readable.push_back("/proc/self");
#endif
  // Older kernels have none, and the writing is contained without it.
  static_cast<void>(confine(confinement));
}

}  // namespace

std::optional<IconInfo> takeIn(IsolatedPictures& pictures, const std::string& picture,
                               const std::string& folder) {
  const Decoded decoded = pictures.read(picture);
  IconInfo iconInfo;
  if (decoded.picture) iconInfo.imageData = pictures.tiffRepresentation(*decoded.picture);
  if (!iconInfo.imageData) {
    const std::string reason = decoded.picture ? "not enough memory" : decoded.refusal;
    complain("cannot read the picture \"" + oneLine(picture) + "\": " + reason);
    return std::nullopt;
  }
  confineTo(folder);
  return iconInfo;
}

}  // namespace tessarine
