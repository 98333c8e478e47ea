#include "custom/custom_icon_generator.h"

#include <cstdint>
#include <string>

#include "custom/text.h"
#include "output/output_folder.h"
#include "output/resampler.h"
#include "output/writers.h"
#include "platform/fatal_stop.h"

namespace tessarine {

namespace {

// A field of a single character leaves its row out.
bool isFilled(const Outlet<TextField>& field) {
  return characterCount(field->stringValue()) >= 2;
}

bool qualifies(const FormRow& row) {
  return isFilled(row.name) && isFilled(row.left) && isFilled(row.right);
}

std::int64_t pixels(const Outlet<TextField>& field) {
  return intValue(field->stringValue());
}

}  // namespace

void generateCustomIcons(Platform& platform, const IconInfo& iconInfo, const CustomForm& form) {
  const std::string folder = chooseOutputDirectory(platform);
  for (const FormRow& row : form.rows) {
    if (!qualifies(row)) continue;
    const Picture source = required(iconInfo.image(platform.pictures));
    const std::int64_t width = pixels(row.left);
    const std::int64_t height = pixels(row.right);
    const Picture resized = required(resizedImage(source, width, height));
    writePNG(platform, resized, fileLocation(folder, row.name->stringValue(), "png"));
  }
  revealInFileManager(platform, folder);
}

}  // namespace tessarine
