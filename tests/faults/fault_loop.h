#pragma once

#include <string>
#include <vector>

namespace tessarine::testing {

// One run of a generator, to be disturbed.
struct Scenario {
  std::string name;
  // What stands before and behind PICTURE FOLDER on the command line.
  std::string word;
  std::vector<std::string> rows;
  // Whether other files stand in the place of the new ones.
  bool overOldFiles = false;
  // How many of its last calls are disturbed; all of them when 0.
  int lastCalls = 0;
  // Whether the file system has files without a name.
  bool unnamedFiles = true;
};

struct Tally {
  // The calls of a run without faults.
  int calls = 0;
  int runs = 0;
  int kills = 0;
  // The kills that left a temporary file.
  int leftovers = 0;
  // What went wrong, a line each.
  std::vector<std::string> failures;
};

// Disturbs every call in turn, moving on until a run makes no further call: by every kind of
// error, once and from there on; and by every kind of kill, followed by a second run.
Tally disturb(const Scenario& scenario);

}  // namespace tessarine::testing
