#include "custom/text.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

#include <charconv>
#include <limits>
#include <memory>
#include <system_error>

#include "platform/fatal_stop.h"

namespace tessarine {

namespace {

// Only a broken installation of the Unicode data makes one of its operations fail.
void requireSuccess(UErrorCode status) {
  require(U_SUCCESS(status) != 0);
}

// Reads UTF-8 in place, which must outlive it.
class TextReader {
 public:
  explicit TextReader(std::string_view utf8) {
    UErrorCode status = U_ZERO_ERROR;
    utext_openUTF8(&text_, utf8.data(), static_cast<std::int64_t>(utf8.size()), &status);
    requireSuccess(status);
  }
  ~TextReader() { utext_close(&text_); }
  TextReader(const TextReader&) = delete;
  TextReader& operator=(const TextReader&) = delete;

  UText* text() { return &text_; }

 private:
  UText text_ = UTEXT_INITIALIZER;
};

std::size_t leadingWhiteSpace(std::string_view utf8) {
  TextReader reader(utf8);
  UChar32 character = utext_next32(reader.text());
  while (character >= 0 && u_isUWhiteSpace(character)) character = utext_next32(reader.text());
  if (character >= 0) utext_previous32(reader.text());
  return static_cast<std::size_t>(utext_getNativeIndex(reader.text()));
}

}  // namespace

std::size_t characterCount(std::string_view utf8) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::BreakIterator> characters(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  requireSuccess(status);
  TextReader reader(utf8);
  characters->setText(reader.text(), status);
  requireSuccess(status);
  std::size_t count = 0;
  while (characters->next() != icu::BreakIterator::DONE) ++count;
  return count;
}

std::int32_t intValue(std::string_view utf8) {
  std::string_view number = utf8.substr(leadingWhiteSpace(utf8));
  // from_chars takes a minus sign, but no plus sign.
  if (number.starts_with('+')) {
    number.remove_prefix(1);
    if (number.starts_with('-')) return 0;
  }
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error == std::errc::result_out_of_range) {
    using Limits = std::numeric_limits<std::int32_t>;
    return number.starts_with('-') ? Limits::min() : Limits::max();
  }
  return value;
}

}  // namespace tessarine
