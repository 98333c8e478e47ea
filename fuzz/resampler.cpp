#include "output/resampler.h"

#include "fuzz/fuzzing.h"

using namespace tessarine;

// Any size gives a picture of that size, with pixels where it can have some.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzzing::Input input(data, size);
  const std::int64_t width = input.number() % 600 - 3;
  const std::int64_t height = input.number() % 600 - 3;
  const PixelSize from{input.number() % 400 + 1, input.byte() + 1};
  const Bitmap source = input.bitmap(from);

  const auto resized = required(resizedImage({from, source}, width, height));
  const PixelSize wanted{width, height};
  fuzzing::expect(resized.points == wanted);
  fuzzing::expect(resized.bitmap.has_value() == Bitmap::byteCount(wanted).has_value());
  if (!resized.bitmap) return 0;
  for (std::size_t at = 0; at < resized.bitmap->pixels().size(); at += Bitmap::bytesPerPixel) {
    const auto pixel = resized.bitmap->pixels().subspan(at, Bitmap::bytesPerPixel);
    // Nothing is stored under full transparency, unless the picture is the source itself.
    if (wanted != from && pixel[3] == 0) {
      fuzzing::expect(pixel[0] == 0 && pixel[1] == 0 && pixel[2] == 0);
    }
  }
  return 0;
}
