#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tessarine::testing {

struct Outcome {
  // The exit status, or 128 and the number of the signal that ended the program.
  int status = -1;
  std::string output;
  std::string error;
};

// Runs tessarine-headless to its end. `prepare` is called in the new process before the program
// starts, with its standard streams already in place.
Outcome runProgram(const std::vector<std::string>& arguments,
                   const std::function<void()>& prepare = {});

std::vector<std::string> linesOf(const std::string& text);

}  // namespace tessarine::testing
