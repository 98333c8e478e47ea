#include "tests/faults/expected_icons.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <set>

#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

namespace fs = std::filesystem;

namespace {

constexpr const char* catalogue = "Contents.json";

bool isTemporary(const std::string& name) {
  return name.starts_with(".tessarine-");
}

const std::string* find(const Files& files, const std::string& name) {
  const auto file = files.find(name);
  return file == files.end() ? nullptr : &file->second;
}

bool isWhole(const Files& files, const ExpectedIcons& expected, const std::string& name) {
  const std::string* contents = find(files, name);
  return contents != nullptr && *contents == expected.whole.at(name);
}

bool isAsBefore(const Files& files, const ExpectedIcons& expected, const std::string& name) {
  const std::string* contents = find(files, name);
  const std::string* before = find(expected.before, name);
  return contents == nullptr || before == nullptr ? contents == before : *contents == *before;
}

// The file named by a line of the program; "" when the line is not as it should be.
std::string namedBy(const std::string& line, const fs::path& folder, const std::string& cause) {
  const std::string head = "error saving: \"" + folder.string() + "/";
  const std::string tail = "\" could not be written: " + cause;
  if (!line.starts_with(head) || !line.ends_with(tail)) return "";
  return line.substr(head.size(), line.size() - head.size() - tail.size());
}

// What the program must say of a call that failed. Where its folder could not be made, a run finds
// it missing.
bool namesAFile(const std::string& line, const Fault& fault, const fs::path& folder,
                std::string& name) {
  name = namedBy(line, folder, std::strerror(std::atoi(fault.kind.code.c_str())));
  if (name.empty() && !fs::exists(folder)) name = namedBy(line, folder, std::strerror(ENOENT));
  return !name.empty();
}

// How many files may fail by the calls that were disturbed.
std::string countOf(std::size_t lines, const FaultedRun& run, const Fault& fault,
                    const ExpectedIcons& expected) {
  // Calls that were interrupted or fell short are continued.
  const bool continued = fault.kind.code == "short" || fault.kind.code == std::to_string(EINTR);
  // Without the folder, the first call of all, no file can be written.
  const bool one = lines == 1 || lines == expected.whole.size();
  const bool right = run.disturbed <= 0 ? lines == 0
                     : fault.onward     ? continued || lines >= 1
                     : continued        ? lines == 0
                                        : one;
  return right ? "" : std::to_string(lines) + " lines";
}

}  // namespace

Files filesIn(const fs::path& folder) {
  Files files;
  if (!fs::exists(folder)) return files;
  for (const std::string& name : namesIn(folder)) files[name] = contentsOf(folder / name);
  return files;
}

bool withoutTemporary(Files& files) {
  return std::erase_if(files, [](const auto& file) { return isTemporary(file.first); }) > 0;
}

std::string faultIn(const FaultedRun& run, const Fault& fault, const ExpectedIcons& expected,
                    const fs::path& folder) {
  std::set<std::string> told;
  for (const std::string& line : linesOf(run.outcome.output)) {
    std::string name;
    if (!namesAFile(line, fault, folder, name)) return "an odd line: " + line;
    if (!expected.whole.contains(name)) return "a line for no file of the run: " + line;
    if (!told.insert(name).second) return "a second line: " + line;
  }
  if (run.outcome.status != (told.empty() ? 0 : 1)) {
    return "exit status " + std::to_string(run.outcome.status);
  }
  if (!run.outcome.error.empty()) return "on standard error: " + run.outcome.error;
  if (const std::string wrong = countOf(told.size(), run, fault, expected); !wrong.empty()) {
    return wrong;
  }

  const Files files = filesIn(folder);
  for (const auto& [name, contents] : expected.whole) {
    const bool whole = isWhole(files, expected, name);
    if (!whole && !told.contains(name)) return "not whole, and not told: " + name;
    if (!whole && name == catalogue && !isAsBefore(files, expected, name))
      return "a torn catalogue";
  }
  for (const auto& [name, contents] : files) {
    // Where not even its removal succeeds, the temporary file stays.
    const bool mayStay = isTemporary(name) && fault.onward && told.contains(catalogue);
    if (!expected.whole.contains(name) && !mayStay) return "left over: " + name;
  }
  return "";
}

std::string damageIn(const FaultedRun& run, const ExpectedIcons& expected, const fs::path& folder) {
  if (run.outcome.status != 128 + SIGKILL) return "not killed";
  Files files = filesIn(folder);
  withoutTemporary(files);
  int torn = 0;
  for (const auto& [name, contents] : expected.whole) {
    if (isWhole(files, expected, name) || isAsBefore(files, expected, name)) continue;
    if (name == catalogue) return "a torn catalogue";
    ++torn;
  }
  if (torn > 1) return std::to_string(torn) + " torn pictures";
  for (const auto& [name, contents] : files) {
    if (!expected.whole.contains(name)) return "left over: " + name;
  }
  return "";
}

}  // namespace tessarine::testing
