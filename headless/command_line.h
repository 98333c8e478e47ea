#pragma once

#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <variant>
#include <vector>

#include "custom/custom_form.h"
#include "iconsets/icon_set.h"

namespace tessarine {

struct ShowHelp {};
struct ShowVersion {};

struct WrongUsage {
  // One line without a full stop.
  std::string reason;
};

// One or more fixed sets of one picture. Folders have no trailing separator.
struct CutSets {
  struct Target {
    std::string folder;
    const IconSet* set;
  };
  std::string picture;
  // The folder as named on the command line; every target is this folder or lies beneath it.
  std::string folder;
  std::vector<Target> targets;
};

struct CutCustom {
  // As the form takes them.
  struct Row {
    std::string name;
    std::string width;
    std::string height;
  };
  static constexpr std::size_t maximumRows = std::tuple_size_v<decltype(CustomForm::rows)>;

  std::string picture;
  std::string folder;
  std::vector<Row> rows;
};

using Command = std::variant<ShowHelp, ShowVersion, WrongUsage, CutSets, CutCustom>;

// `arguments` without the program's own name.
Command parseCommandLine(std::span<const std::string_view> arguments);

}  // namespace tessarine
