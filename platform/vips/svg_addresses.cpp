#include "platform/vips/svg_addresses.h"

#include <glib.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace tessarine {

namespace {

constexpr std::string_view blanks = " \t\r\n\f";
constexpr std::string_view carried = "data:";

std::string_view::iterator findInAnyCase(std::string_view text, std::string_view word) {
  return std::search(text.begin(), text.end(), word.begin(), word.end(),
                     [](char a, char b) { return g_ascii_tolower(a) == b; });
}

std::string_view withoutBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

// Of the declaration that `text` ends with.
std::string_view propertyAtTheEndOf(std::string_view text) {
  text.remove_prefix(text.find_last_of(";{}") + 1);
  const auto colon = text.find(':');
  return colon == std::string_view::npos ? std::string_view{}
                                         : withoutBlanks(text.substr(0, colon));
}

// As the library reads an address, whatever blanks there are in it.
std::string withoutAnyBlank(std::string_view text) {
  std::string letters;
  std::ranges::copy_if(text, std::back_inserter(letters),
                       [](char letter) { return letter < '\0' || letter > ' '; });
  return letters;
}

}  // namespace

std::optional<StyleAddress> takeAddress(std::string_view& style) {
  static constexpr std::string_view function = "url(";
  const auto found = findInAnyCase(style, function);
  if (found == style.end()) return std::nullopt;
  const std::string_view before(style.begin(), found);
  style.remove_prefix(before.size() + function.size());
  style.remove_prefix(std::min(style.find_first_not_of(blanks), style.size()));
  const bool isQuoted = style.starts_with('"') || style.starts_with('\'');
  const char closing = isQuoted ? style.front() : ')';
  if (isQuoted) style.remove_prefix(1);
  const auto address = style.substr(0, style.find(closing));
  style.remove_prefix(address.size());
  return StyleAddress{propertyAtTheEndOf(before), withoutBlanks(address)};
}

bool refersIntoData(std::string_view address) {
  if (address.find('#') == std::string_view::npos) return false;
  const std::string letters = withoutAnyBlank(address);
  return findInAnyCase(letters, carried) == std::string_view(letters).begin();
}

bool importsData(std::string_view styleSheet) {
  static constexpr std::string_view rule = "@import";
  while (true) {
    const auto found = findInAnyCase(styleSheet, rule);
    if (found == styleSheet.end()) return false;
    styleSheet = {found, styleSheet.end()};
    const auto import = styleSheet.substr(0, styleSheet.find(';'));
    const std::string letters = withoutAnyBlank(import);
    if (findInAnyCase(letters, carried) != std::string_view(letters).end()) return true;
    styleSheet.remove_prefix(import.size());
  }
}

}  // namespace tessarine
