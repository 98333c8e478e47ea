#include "platform/isolation/isolated_pictures.h"

#include <fcntl.h>
#include <sys/mman.h>

#include <utility>

#include "platform/isolation/decoding_process.h"
#include "platform/posix/write_whole.h"
#include "platform/vips/held_tiff.h"
#include "platform/vips/regular_file.h"

namespace tessarine {

IsolatedPictures::IsolatedPictures(std::string program, std::chrono::milliseconds patience)
    : program_(std::move(program)), patience_(patience) {}

std::optional<Picture> IsolatedPictures::decode(const ByteBuffer& bytes) {
  if (auto bitmap = viewHeldTIFF(bytes)) return Picture{bitmap->size(), *std::move(bitmap)};
  if (formatOf(headOf(bytes)) == nullptr) return std::nullopt;
  const int descriptor = ::memfd_create("picture", MFD_CLOEXEC | MFD_ALLOW_SEALING);
  const int error = writeWhole(descriptor, bytes.bytes());
  const RegularFile file(descriptor);
  // A file's decoder may only read it; so may that of these bytes.
  const bool sealed =
      ::fcntl(descriptor, F_ADD_SEALS, F_SEAL_WRITE | F_SEAL_GROW | F_SEAL_SHRINK) == 0;
  return error == 0 && sealed ? read(file).picture : std::nullopt;
}

std::optional<Picture> IsolatedPictures::decodeFile(const std::string& path) {
  return read(path).picture;
}

std::optional<ByteBuffer> IsolatedPictures::tiffRepresentation(const Picture& picture) {
  return vips_.tiffRepresentation(picture);
}

std::vector<std::string> IsolatedPictures::imageTypes() {
  return vips_.imageTypes();
}

Decoded IsolatedPictures::read(const std::string& path) const {
  return read(RegularFile(path));
}

Decoded IsolatedPictures::read(const RegularFile& file) const {
  const std::string refusal = refusalOf(file);
  if (!refusal.empty()) return {std::nullopt, refusal};
  return decodeInProcess(program_, file.descriptor(), patience_);
}

}  // namespace tessarine
