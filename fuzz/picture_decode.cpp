#include "fuzz/fuzzing.h"
#include "platform/vips/decoder.h"

using namespace tessarine;

// There is a picture with all its pixels, or a reason.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto decoded = decodePicture(ByteBuffer({data, size}, nullptr));
  fuzzing::expect(decoded.picture.has_value() == decoded.refusal.empty());
  if (!decoded.picture) return 0;
  const auto& bitmap = required(decoded.picture->bitmap);
  fuzzing::expect(bitmap.size() == decoded.picture->points);
  fuzzing::expect(bitmap.pixels().size() == Bitmap::byteCount(bitmap.size()));
  return 0;
}
