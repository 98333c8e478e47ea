#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tessarine::benchmarks {

// One file to cut, without an extension.
struct Row {
  std::string path;
  int width, height;
};

// What every tool is asked to do: decode `source` afresh for each row, stretch it to the row's
// size and write an 8-bit RGBA PNG file below `folder`.
struct Job {
  std::vector<Row> rows;
  std::vector<std::uint8_t> source;
  std::string folder;

  std::string pathOf(const Row& row) const { return folder + "/" + row.path + ".png"; }
};

// The table of files, the source's file and the folder, from the command line; ends the program
// when one cannot be read.
Job readJob(int argc, char** argv);

// Runs `cut` and prints the milliseconds that it took by the clock and of the processor.
void timed(const std::function<void()>& cut);

// Ends the program with a message when a step has failed.
void must(bool succeeded, const char* step);

}  // namespace tessarine::benchmarks
