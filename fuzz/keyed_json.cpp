#include <algorithm>

#include "fuzz/fuzzing.h"
#include "intake/icon_info.h"
#include "intake/keyed_coding.h"

using namespace tessarine;

// A record that can be decoded is the same after encoding and decoding it.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const IconInfo record{JSONDecoder(fuzzing::textOf({data, size}))};
    JSONEncoder encoder;
    record.encode(encoder);
    const IconInfo again{JSONDecoder(encoder.text())};
    fuzzing::expect(again.imageData.has_value() == record.imageData.has_value());
    fuzzing::expect(!again.imageData ||
                    std::ranges::equal(again.imageData->bytes(), record.imageData->bytes()));
  } catch (const DecodingError&) {
  }
  return 0;
}
