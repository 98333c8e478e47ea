#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "platform/posix/granted_files.h"
#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

// What a folder may hold and what its files may be called, to write through or to break out by.
struct Arrangement {
  std::string label;
  // The name handed over behind the granted folder and a separator.
  std::string name;
  // A part of the description when the write is refused; empty when it must succeed.
  std::string cause;
  // Where the bytes must then be, from the granted folder; empty for `name` itself.
  std::string place = {};
  std::function<void(const std::filesystem::path& granted)> arrange = {};
  bool needsRoot = false;

  friend void PrintTo(const Arrangement& arrangement, std::ostream* stream) {
    *stream << arrangement.label;
  }
};

std::vector<Arrangement> namesThatLeadOut();
std::vector<Arrangement> linksThatLeadOut();
std::vector<Arrangement> thingsInTheWay();
std::vector<Arrangement> namesThatStay();
std::vector<Arrangement> linksThatStay();

enum class Operation { inPlace, atomic };
enum class Writer { asStarted, ordinaryUser };

// A granted folder with neighbours:
//   granted/sub/, granted/old.png   the folder picked
//   granted-sibling/                shares the beginning of its name
//   outside/secret                  what must not change
class Neighbourhood {
 public:
  Neighbourhood();

  const std::filesystem::path& root() const { return root_.path(); }
  std::filesystem::path granted() const { return root() / "granted"; }
  std::string outside() const { return snapshot(root(), granted()); }

  // Hands everything over to the ordinary user.
  void giveAway() const;

 private:
  TemporaryFolder root_;
};

// The description of the failure, or "".
std::string write(Operation operation, Resolution resolution, const std::string& folder,
                  const std::string& path, const std::string& text);

using Combination = std::tuple<Arrangement, Resolution, Operation, Writer>;
std::string labelOf(const ::testing::TestParamInfo<Combination>& info);

}  // namespace tessarine::testing
