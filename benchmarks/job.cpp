#include "benchmarks/job.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>

namespace tessarine::benchmarks {

void must(bool succeeded, const char* step) {
  if (succeeded) return;
  std::fprintf(stderr, "failed: %s\n", step);
  std::exit(1);
}

Job readJob(int argc, char** argv) {
  must(argc >= 4, "usage: PROGRAM ROWS SOURCE FOLDER");
  Job job;
  std::ifstream rows(argv[1]);
  for (Row row; rows >> row.path >> row.width >> row.height;) job.rows.push_back(row);
  must(!job.rows.empty(), argv[1]);
  std::ifstream source(argv[2], std::ios::binary);
  job.source.resize(std::filesystem::file_size(argv[2]));
  source.read(reinterpret_cast<char*>(job.source.data()),
              static_cast<std::streamsize>(job.source.size()));
  must(source.good(), argv[2]);
  job.folder = argv[3];
  for (const Row& row : job.rows) {
    std::filesystem::create_directories(std::filesystem::path(job.pathOf(row)).parent_path());
  }
  return job;
}

void timed(const std::function<void()>& cut) {
  const auto start = std::chrono::steady_clock::now();
  const std::clock_t processorStart = std::clock();
  cut();
  const std::clock_t processor = std::clock() - processorStart;
  const std::chrono::duration<double, std::milli> clock = std::chrono::steady_clock::now() - start;
  std::printf("%.3f %.3f\n", clock.count(),
              1000.0 * static_cast<double>(processor) / CLOCKS_PER_SEC);
}

}  // namespace tessarine::benchmarks
