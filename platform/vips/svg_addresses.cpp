#include "platform/vips/svg_addresses.h"

#include <glib.h>

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace tessarine {

namespace {

constexpr std::string_view carried = "data:";

// A byte of a style sheet whose escapes have been replaced, and whether it was one of them: such a
// byte closes nothing.
struct Byte {
  char value;
  bool wasEscaped;
};

// The character of the escape behind whose backslash `css` begins; the escape is taken from `css`.
std::string takeEscaped(std::string_view& css) {
  constexpr std::size_t mostDigits = 6;
  unsigned code = 0;
  const auto digits = css.substr(0, mostDigits);
  const auto* end = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16).ptr;
  const auto count = static_cast<std::size_t>(end - digits.data());
  if (count == 0) {
    const std::string letter(css.substr(0, 1));
    css.remove_prefix(letter.size());
    return letter == "\n" ? "" : letter;
  }
  css.remove_prefix(count);
  if (!css.empty() && g_ascii_isspace(css.front()) != 0) css.remove_prefix(1);
  std::string letter(mostDigits, '\0');
  letter.resize(static_cast<std::size_t>(g_unichar_to_utf8(code, letter.data())));
  return letter;
}

std::vector<Byte> withoutEscapes(std::string_view css) {
  std::vector<Byte> plain;
  while (!css.empty()) {
    const char letter = css.front();
    css.remove_prefix(1);
    if (letter != '\\') {
      plain.push_back({letter, false});
    } else {
      for (const char escaped : takeEscaped(css)) plain.push_back({escaped, true});
    }
  }
  return plain;
}

// As far as an address goes of which `begin` is the first byte behind the bracket.
std::string addressAt(std::vector<Byte>::const_iterator begin,
                      std::vector<Byte>::const_iterator end) {
  begin = std::find_if(begin, end, [](Byte byte) { return g_ascii_isspace(byte.value) == 0; });
  const bool isQuoted = begin != end && (begin->value == '"' || begin->value == '\'');
  const char closing = isQuoted ? begin->value : ')';
  std::string address;
  for (auto at = isQuoted ? begin + 1 : begin; at != end; ++at) {
    if (at->value == closing && !at->wasEscaped) break;
    address.push_back(at->value);
  }
  // Blanks before the bracket are none of the address.
  if (!isQuoted) address.resize(address.find_last_not_of(" \t\r\n\f") + 1);
  return address;
}

// In small letters and without blanks, as the library reads the beginning of an address.
std::string folded(std::string_view text) {
  std::string letters;
  for (const char letter : text) {
    if (letter < '\0' || letter > ' ') letters.push_back(g_ascii_tolower(letter));
  }
  return letters;
}

}  // namespace

std::vector<std::string> addressesIn(std::string_view css) {
  static constexpr std::string_view function = "url(";
  std::vector<std::string> addresses;
  if (css.find('(') == std::string_view::npos) return addresses;
  const auto plain = withoutEscapes(css);
  auto at = plain.begin();
  const auto isAlike = [](Byte byte, char letter) { return g_ascii_tolower(byte.value) == letter; };
  while (true) {
    at = std::search(at, plain.end(), function.begin(), function.end(), isAlike);
    if (at == plain.end()) return addresses;
    at += function.size();
    addresses.push_back(addressAt(at, plain.end()));
  }
}

bool refersIntoData(std::string_view address) {
  return address.find('#') != std::string_view::npos && folded(address).starts_with(carried);
}

bool importsData(std::string_view css) {
  std::string plain;
  for (const Byte byte : withoutEscapes(css)) plain.push_back(byte.value);
  plain = folded(plain);
  return plain.find("@import") != std::string::npos && plain.find(carried) != std::string::npos;
}

}  // namespace tessarine
