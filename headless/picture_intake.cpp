#include "headless/picture_intake.h"

#include <cstdio>

#include "headless/prepared_folder.h"
#include "headless/usage.h"
#include "platform/posix/confinement.h"
#include "platform/posix/one_line.h"
#include "platform/vips/decoder.h"

namespace tessarine {

namespace {

constexpr const char* noMemory = "not enough memory";

// Where the picture libraries keep their modules, fonts, colour profiles and settings; and what
// their run-time libraries ask the system about this process.
const std::vector<std::string> systemPaths{
    "/usr",
    "/lib",
    "/lib64",
    "/etc/fonts",
    "/etc/ImageMagick-6",
    "/etc/ImageMagick-7",
    "/var/cache/fontconfig",
    "/proc/self",
    "/dev/null",
    "/dev/urandom",
};

void confineTo(const std::string& picture, const std::string& folder,
               const PreparedFolder& prepared) {
  Confinement confinement{systemPaths, {folder}, {prepared.parentOfCreated()}};
  confinement.readable.push_back(picture);
  // Older kernels have no confinement, and the writing is contained without it.
  static_cast<void>(confine(confinement));
}

// The picture libraries end the program, or worse, where one of their small requests for memory is
// refused. So they are called only when there is room for all that they need beside the picture.
bool isRoomForLibraries() {
  constexpr std::size_t need = std::size_t{64} << 20;
  return MemoryBlock::allocate(need).has_value();
}

}  // namespace

std::optional<IconInfo> takeIn(Pictures& pictures, const std::string& picture,
                               const std::string& folder) {
  PreparedFolder prepared(folder);
  confineTo(picture, folder, prepared);
  const Decoded decoded =
      isRoomForLibraries() ? decodePictureFile(picture) : Decoded{std::nullopt, noMemory};
  IconInfo iconInfo;
  if (decoded.picture) iconInfo.imageData = pictures.tiffRepresentation(*decoded.picture);
  if (!iconInfo.imageData) {
    const std::string reason = decoded.picture ? noMemory : decoded.refusal;
    complain("cannot read the picture \"" + oneLine(picture) + "\": " + reason);
    return std::nullopt;
  }
  prepared.keep();
  return iconInfo;
}

void complain(const std::string& reason) {
  std::fprintf(stderr, "%s: %s\n", programName, reason.c_str());
}

}  // namespace tessarine
