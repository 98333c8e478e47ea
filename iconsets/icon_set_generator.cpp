#include "iconsets/icon_set_generator.h"

#include <string>

#include "output/output_folder.h"
#include "output/resampler.h"
#include "output/writers.h"
#include "platform/fatal_stop.h"

namespace tessarine {

void generateIconSet(Platform& platform, const IconInfo& iconInfo, const IconSet& set) {
  const std::string folder = chooseOutputDirectory(platform);
  for (const std::string_view name : set.names) {
    Picture picture = required(iconInfo.image(platform.pictures));
    if (const auto size = sizeOf(set, name)) {
      picture = required(resizedImage(picture, size->width, size->height));
    }
    writePNG(platform, picture, fileLocation(folder, name, "png"));
  }
  if (set.contentsJSON) {
    writeContentsJSON(platform, fileLocation(folder, "Contents", "json"), *set.contentsJSON);
  }
  revealInFileManager(platform, folder);
}

}  // namespace tessarine
