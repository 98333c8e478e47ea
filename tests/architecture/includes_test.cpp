#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

// The floors of the house, held by reading every `#include` of the program.
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;

const fs::path root(TESSARINE_SOURCE_DIR);
const std::vector<std::string> rooms{"platform", "intake", "output",  "iconsets",
                                     "custom",   "app",    "headless"};

// A file's room: its folder, with the side doors of platform/ each a room of its own, and the roof
// for the files that choose the adapters.
std::string roomOf(const fs::path& file) {
  const std::string name = file.generic_string();
  if (name == "app/main.cpp" || name.starts_with("app/screens.") || name.starts_with("headless/")) {
    return "roof";
  }
  return file.parent_path().generic_string();
}

bool mayInclude(const std::string& from, const std::string& to) {
  if (from == to || from == "roof" || to == "platform") return true;
  if (from == "platform/isolation") return to == "platform/vips" || to == "platform/posix";
  if (from == "iconsets" || from == "custom") return to == "intake" || to == "output";
  if (from == "app") {
    return to == "intake" || to == "output" || to == "iconsets" || to == "custom";
  }
  return false;
}

std::vector<fs::path> sources() {
  std::vector<fs::path> files;
  for (const std::string& room : rooms) {
    for (const auto& entry : fs::recursive_directory_iterator(root / room)) {
      const auto extension = entry.path().extension();
      if (extension == ".h" || extension == ".cpp") files.push_back(fs::relative(entry, root));
    }
  }
  return files;
}

// The names between quotes or angle brackets, as written.
std::vector<std::string> includesOf(const fs::path& file) {
  static const std::regex include(R"(^\s*#\s*include\s*["<]([^">]+)[">].*)");
  std::ifstream stream(root / file);
  std::vector<std::string> names;
  std::smatch match;
  for (std::string line; std::getline(stream, line);) {
    if (std::regex_match(line, match, include)) names.push_back(match[1]);
  }
  return names;
}

bool isOurs(const std::string& include) {
  return std::ranges::any_of(
      rooms, [&](const std::string& room) { return include.starts_with(room + "/"); });
}

TEST(Includes, AreFoundAtAll) {
  EXPECT_GT(sources().size(), 30U);
  EXPECT_THAT(includesOf("intake/drop_target.cpp"), ::testing::Contains("intake/drop_target.h"));
}

TEST(Includes, GoDownTheFloorsOnly) {
  std::vector<std::string> climbing;
  for (const fs::path& file : sources()) {
    for (const std::string& include : includesOf(file)) {
      if (isOurs(include) && !mayInclude(roomOf(file), roomOf(include))) {
        climbing.push_back(file.generic_string() + " includes " + include);
      }
    }
  }
  EXPECT_THAT(climbing, IsEmpty());
}

TEST(Includes, NameOurHeadersFromTheRoot) {
  std::vector<std::string> relative;
  for (const fs::path& file : sources()) {
    for (const std::string& include : includesOf(file)) {
      if (include.starts_with(".") || fs::exists(root / file.parent_path() / include)) {
        relative.push_back(file.generic_string() + " includes " + include);
      }
    }
  }
  EXPECT_THAT(relative, IsEmpty());
}

// Only the side door that adapts a toolkit, and the roof that chooses it, may know one.
TEST(Includes, OfAToolkitStayBehindItsDoor) {
  static const std::regex toolkit(
      R"(^(Q[A-Za-z]+|Qt[A-Za-z]+/.*|vips/.*|tiffio\.h|gtk/.*|glib.*)$)");
  std::vector<std::string> leaks;
  for (const fs::path& file : sources()) {
    const std::string room = roomOf(file);
    if (room == "roof" || room == "platform/qt" || room == "platform/vips") continue;
    for (const std::string& include : includesOf(file)) {
      if (std::regex_match(include, toolkit)) {
        leaks.push_back(file.generic_string() + " includes " + include);
      }
    }
  }
  EXPECT_THAT(leaks, IsEmpty());
}

struct Step {
  const char* from;
  const char* to;
  bool allowed;
};

class Floors : public ::testing::TestWithParam<Step> {};

TEST_P(Floors, Hold) {
  const auto& [from, to, allowed] = GetParam();
  EXPECT_EQ(mayInclude(roomOf(from), roomOf(to)), allowed) << from << " to " << to;
}

INSTANTIATE_TEST_SUITE_P(
    Steps, Floors,
    ::testing::Values(
        Step{"intake/a.h", "output/b.h", false}, Step{"output/a.h", "intake/b.h", false},
        Step{"iconsets/a.h", "custom/b.h", false}, Step{"custom/a.h", "iconsets/b.h", false},
        Step{"platform/a.h", "intake/b.h", false}, Step{"platform/qt/a.h", "app/b.h", false},
        Step{"platform/qt/a.h", "platform/vips/b.h", false},
        Step{"platform/vips/a.h", "platform/posix/b.h", false},
        Step{"platform/isolation/a.h", "platform/vips/b.h", true},
        Step{"platform/isolation/a.h", "platform/qt/b.h", false},
        Step{"app/drag_view.h", "platform/qt/b.h", false},
        Step{"app/screens.cpp", "platform/qt/b.h", true},
        Step{"app/main.cpp", "platform/vips/b.h", true},
        Step{"headless/main.cpp", "iconsets/b.h", true}, Step{"custom/a.h", "output/b.h", true},
        Step{"platform/vips/a.h", "platform/b.h", true}));

}  // namespace
