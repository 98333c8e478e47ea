#include <string>

#include "custom/text.h"
#include "fuzz/fuzzing.h"

using namespace tessarine;

// What is read is read again from its own digits, and no text has more characters than bytes.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto text = fuzzing::textOf({data, size});
  const auto value = intValue(text);
  fuzzing::expect(intValue(std::to_string(value)) == value);
  fuzzing::expect(intValue(" \t" + std::to_string(value) + "px") == value);
  fuzzing::expect(characterCount(text) <= size);
  return 0;
}
