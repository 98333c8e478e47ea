#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <fstream>
#include <sstream>
#include <string>

#include "custom/text.h"

// All cases that the Unicode Consortium publishes, from Debian's package unicode-data.
namespace tessarine {
namespace {

void appendUTF8(std::string& text, unsigned long character) {
  const auto unit = [&text](unsigned long bits) { text += static_cast<char>(bits); };
  if (character < 0x80) {
    unit(character);
  } else if (character < 0x800) {
    unit(0xc0 | character >> 6);
    unit(0x80 | (character & 63));
  } else if (character < 0x10000) {
    unit(0xe0 | character >> 12);
    unit(0x80 | (character >> 6 & 63));
    unit(0x80 | (character & 63));
  } else {
    unit(0xf0 | character >> 18);
    unit(0x80 | (character >> 12 & 63));
    unit(0x80 | (character >> 6 & 63));
    unit(0x80 | (character & 63));
  }
}

TEST(GraphemeBreaks, AreThoseOfTheUnicodeConsortium) {
  std::ifstream file("/usr/share/unicode/auxiliary/GraphemeBreakTest.txt");
  ASSERT_TRUE(file.is_open()) << "the package unicode-data is missing";
  int cases = 0;
  std::string line;
  std::getline(file, line);
  // Cases of a newer Unicode would judge our library by rules that it cannot know yet.
  UVersionInfo known{};
  u_getUnicodeVersion(known);
  const int major = std::stoi(line.substr(line.find_first_of("0123456789")));
  if (major > known[0]) GTEST_SKIP() << line << " is newer than the library's Unicode";
  while (std::getline(file, line)) {
    line = line.substr(0, line.find('#'));
    std::istringstream marks(line);
    std::string text;
    std::size_t breaks = 0;
    for (std::string mark; marks >> mark;) {
      if (mark == "÷") {
        ++breaks;
      } else if (mark != "×") {
        appendUTF8(text, std::stoul(mark, nullptr, 16));
      }
    }
    if (text.empty()) continue;
    ++cases;
    // A break stands before the first character and behind the last one.
    EXPECT_EQ(characterCount(text), breaks - 1) << line;
  }
  EXPECT_GE(cases, 602);
}

}  // namespace
}  // namespace tessarine
