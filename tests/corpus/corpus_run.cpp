// Takes every picture that standard input names, one path a line, the whole way: decode, TIFF
// representation, decode of that, one resize, one PNG; each in a process of its own. Prints how
// many were read and refused, and names those that ended it or took too long.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <string>

#include "output/png_encoder.h"
#include "output/resampler.h"
#include "platform/vips/decoder.h"
#include "platform/vips/vips_pictures.h"

namespace {

using namespace tessarine;

constexpr rlim_t memoryLimit = rlim_t{4} << 30;  // bytes of address space
constexpr rlim_t processorLimit = 10;            // seconds
constexpr unsigned waitingLimit = 120;           // seconds, for one that sleeps

enum Outcome { wasRead = 10, wasRefused, wasHalfRead };

Outcome process(const std::string& path) {
  VipsPictures pictures;
  auto decoded = decodePictureFile(path);
  if (!decoded.picture) return decoded.refusal.empty() ? wasHalfRead : wasRefused;
  const auto held = pictures.tiffRepresentation(*decoded.picture);
  decoded.picture.reset();
  if (!held) return wasHalfRead;
  const auto source = pictures.decode(*held);
  const auto small = source ? resizedImage(*source, 120, 90) : std::nullopt;
  if (!small || !small->bitmap) return wasHalfRead;
  return encodePNG(*small->bitmap) ? wasRead : wasHalfRead;
}

[[noreturn]] void run(const std::string& path) {
  const rlimit memory{memoryLimit, memoryLimit};
  const rlimit processor{processorLimit, processorLimit + 1};
  ::setrlimit(RLIMIT_AS, &memory);
  ::setrlimit(RLIMIT_CPU, &processor);
  ::alarm(waitingLimit);
  ::_exit(process(path));
}

}  // namespace

int main() {
  int read = 0, refused = 0, crashed = 0, hung = 0;
  // The library is started once; each child is a copy of this process.
  VipsPictures().imageTypes();
  for (std::string path; std::getline(std::cin, path);) {
    const pid_t child = ::fork();
    if (child == 0) run(path);
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child) return 1;
    if (WIFEXITED(status) && WEXITSTATUS(status) == wasRead) {
      ++read;
    } else if (WIFEXITED(status) && WEXITSTATUS(status) == wasRefused) {
      ++refused;
    } else if (WIFSIGNALED(status) &&
               (WTERMSIG(status) == SIGXCPU || WTERMSIG(status) == SIGALRM)) {
      ++hung;
      std::printf("hung: %s\n", path.c_str());
    } else {
      ++crashed;
      std::printf("crashed (%d): %s\n", status, path.c_str());
    }
  }
  std::printf("%d read, %d refused, %d crashed, %d hung\n", read, refused, crashed, hung);
  return crashed + hung == 0 ? 0 : 1;
}
