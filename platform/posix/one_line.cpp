#include "platform/posix/one_line.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessarine {

namespace {

struct Character {
  char32_t code = 0;
  // In bytes; 0 when the text does not begin with well-formed UTF-8.
  std::size_t length = 0;
};

Character firstCharacter(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
  if (lead < 0xc0 || lead >= 0xf8 || text.size() < length) return {};
  char32_t code = lead & (0x7fU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xc0) != 0x80) return {};
    code = (code << 6) | (byte(i) & 0x3fU);
  }
  // The least code that needs so many bytes.
  constexpr std::array<char32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xd800 && code <= 0xdfff;
  if (code < least[length] || code > 0x10ffff || surrogate) return {};
  return {code, length};
}

bool breaksTheLine(char32_t code) {
  return code < 0x20 || (code >= 0x7f && code < 0xa0) || code == 0x2028 || code == 0x2029;
}

void appendEscaped(std::string& line, char c) {
  constexpr std::string_view digits = "0123456789abcdef";
  const auto byte = static_cast<std::uint8_t>(c);
  switch (c) {
    case '\n':
      line += "\\n";
      break;
    case '\r':
      line += "\\r";
      break;
    case '\t':
      line += "\\t";
      break;
    case '\\':
      line += "\\\\";
      break;
    default:
      line.append("\\x") += digits[byte >> 4];
      line += digits[byte & 0xfU];
  }
}

}  // namespace

std::string oneLine(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const Character character = firstCharacter(text);
    const std::size_t length = character.length == 0 ? 1 : character.length;
    const std::string_view bytes = text.substr(0, length);
    if (character.length != 0 && !breaksTheLine(character.code) && character.code != '\\') {
      line += bytes;
    } else {
      for (const char c : bytes) appendEscaped(line, c);
    }
    text.remove_prefix(length);
  }
  return line;
}

}  // namespace tessarine
