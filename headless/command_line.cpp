#include "headless/command_line.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "headless/named_sets.h"

namespace tessarine {

namespace {

std::string withoutTrailingSeparators(std::string_view folder) {
  while (folder.size() > 1 && folder.ends_with('/')) folder.remove_suffix(1);
  return std::string(folder);
}

// The picture and the folder come first for every set. Empty, they are the slip of a script, and
// the folders beneath an empty one would be those of the root.
std::optional<WrongUsage> emptyOperand(std::span<const std::string_view> operands) {
  if (operands[0].empty()) return WrongUsage{"no picture is named"};
  if (operands[1].empty()) return WrongUsage{"no folder is named"};
  return std::nullopt;
}

Command parseSets(std::string_view word, std::span<const std::string_view> operands) {
  if (operands.size() != 2) return WrongUsage{std::string(word) + " takes PICTURE FOLDER"};
  if (auto wrong = emptyOperand(operands)) return *std::move(wrong);
  CutSets command{std::string(operands[0]), withoutTrailingSeparators(operands[1]), {}};
  for (const NamedSet& named : namedSets) {
    if (word == "all") {
      command.targets.push_back({command.folder + "/" + std::string(named.name), &named.set});
    } else if (word == named.name) {
      command.targets.push_back({command.folder, &named.set});
    }
  }
  return command;
}

Command parseCustom(std::span<const std::string_view> operands) {
  constexpr std::size_t fields = 3;
  const bool whole = operands.size() >= 2 && (operands.size() - 2) % fields == 0;
  const std::size_t rows = whole ? (operands.size() - 2) / fields : 0;
  if (rows < 1 || rows > CutCustom::maximumRows) {
    return WrongUsage{"custom takes PICTURE FOLDER and 1 to 8 times NAME WIDTH HEIGHT"};
  }
  if (auto wrong = emptyOperand(operands)) return *std::move(wrong);
  CutCustom command{std::string(operands[0]), withoutTrailingSeparators(operands[1]), {}};
  for (auto row = operands.subspan(2); !row.empty(); row = row.subspan(fields)) {
    command.rows.push_back({std::string(row[0]), std::string(row[1]), std::string(row[2])});
  }
  return command;
}

}  // namespace

Command parseCommandLine(std::span<const std::string_view> arguments) {
  if (arguments.empty()) return WrongUsage{"no set is named"};
  const std::string_view word = arguments.front();
  if (word == "--help") return ShowHelp{};
  if (word == "--version") return ShowVersion{};
  if (word == "custom") return parseCustom(arguments.subspan(1));
  if (word == "all" || std::ranges::find(namedSets, word, &NamedSet::name) != namedSets.end()) {
    return parseSets(word, arguments.subspan(1));
  }
  return WrongUsage{"there is no set of the name \"" + std::string(word) + "\""};
}

}  // namespace tessarine
