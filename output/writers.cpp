#include "output/writers.h"

#include <cstdint>
#include <optional>
#include <span>

#include "output/png_encoder.h"
#include "platform/console.h"
#include "platform/files.h"

namespace tessarine {

namespace {

void report(Platform& platform, const std::optional<std::string>& failure) {
  if (failure) platform.console.printLine("error saving: " + *failure);
}

}  // namespace

std::string fileLocation(std::string_view folder, std::string_view name,
                         std::string_view extension) {
  std::string path(folder);
  path.append("/").append(name).append(".").append(extension);
  return path;
}

void writePNG(Platform& platform, const Picture& picture, const std::string& location) {
  if (!picture.bitmap) return;
  const auto png = encodePNG(*picture.bitmap);
  if (!png) return;
  report(platform, platform.files.writeInPlace(location, png->bytes()));
}

void writeContentsJSON(Platform& platform, const std::string& location, std::string_view text) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  report(platform, platform.files.writeAtomically(location, {bytes, text.size()}));
}

}  // namespace tessarine
