#include "headless/picture_intake.h"

#include <filesystem>
#include <system_error>

#include "headless/complaint.h"
#include "platform/posix/confinement.h"
#include "platform/posix/one_line.h"

namespace tessarine {

namespace {

// Whether the address sanitizer looks for leaks at the end, for which it reads of this process.
constexpr bool seeksLeaks() {
#if defined(__SANITIZE_ADDRESS__)
  return true;
#elif defined(__has_feature)
  return __has_feature(address_sanitizer);
#else
  return false;
#endif
}

void confineTo(const std::string& folder) {
  // Where it cannot be created, every write tells so.
  std::error_code ignored;
  std::filesystem::create_directories(folder, ignored);
  Confinement confinement{{}, {folder}};
  if (seeksLeaks()) confinement.readable.emplace_back("/proc/self");
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
