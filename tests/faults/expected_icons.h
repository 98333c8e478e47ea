#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "tests/faults/fault.h"

namespace tessarine::testing {

// The files of a folder and their contents.
using Files = std::map<std::string, std::string>;
Files filesIn(const std::filesystem::path& folder);

// Takes the temporary files out and tells whether there were any.
bool withoutTemporary(Files& files);

// What a run without faults writes, and what stood in its place before.
struct ExpectedIcons {
  Files whole;
  Files before;
};

// Each answers with what is wrong, or "".

// After a run with failing calls: one line per file that failed and none besides, every other file
// whole, a catalogue never torn, nothing left over.
std::string faultIn(const FaultedRun& run, const Fault& fault, const ExpectedIcons& expected,
                    const std::filesystem::path& folder);

// After a kill: at most one picture torn, a catalogue never; a temporary file may be left.
std::string damageIn(const FaultedRun& run, const ExpectedIcons& expected,
                     const std::filesystem::path& folder);

}  // namespace tessarine::testing
