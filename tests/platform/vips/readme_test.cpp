#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "platform/vips/formats.h"
#include "tests/platform/vips/samples.h"

namespace tessarine {
namespace {

constexpr std::string_view begin = "<!-- formats:begin -->\n";
constexpr std::string_view end = "<!-- formats:end -->";

// What stands between the marks of the README: to be copied there when it has changed.
std::string formatTable() {
  std::ostringstream table;
  table << "| Format | Types | Tested on |\n|---|---|---|\n";
  for (const Format& format : formats()) {
    table << "| " << format.name << " |";
    const char* separator = " ";
    for (const auto type : format.mimeTypes) {
      table << separator << "`" << type << "`";
      separator = ", ";
    }
    table << " |";
    separator = " ";
    std::string_view last;
    for (const testing::Sample& sample : testing::samples) {
      if (sample.format != format.name || sample.what == last) continue;
      table << separator << sample.what;
      separator = ", ";
      last = sample.what;
    }
    table << " |\n";
  }
  return table.str();
}

TEST(Readme, ListsTheFormatsAsTheyAreTested) {
  std::ifstream file(TESSARINE_SOURCE_DIR "/README.md");
  std::ostringstream contents;
  contents << file.rdbuf();
  const std::string readme = contents.str();
  const auto from = readme.find(begin);
  const auto to = readme.find(end);
  ASSERT_NE(from, std::string::npos);
  ASSERT_NE(to, std::string::npos);
  const std::string table = formatTable();
  EXPECT_TRUE(readme.substr(from + begin.size(), to - from - begin.size()) == table)
      << "the README must say:\n"
      << table;
}

}  // namespace
}  // namespace tessarine
