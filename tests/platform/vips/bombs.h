#pragma once

#include <string>
#include <vector>

namespace tessarine::testing {

// A small file that asks for much time or memory.
struct Bomb {
  std::string name;
  std::string bytes;
  // Some may be read, since what is evil about them can be passed over.
  bool mustBeRefused = true;
};

std::vector<Bomb> rasterBombs();
std::vector<Bomb> tiffBombs();
std::vector<Bomb> drawingBombs();
std::vector<Bomb> containerBombs();

}  // namespace tessarine::testing
