// Takes every picture that standard input names, one path a line, the whole way: decode, TIFF
// representation, decode of that, one resize, one PNG; each in a process of its own. Prints how
// many were read and refused, and names those that ended this process or their decoder, or took too
// long. Fails when any of them crashed or hung; a decoder that was stopped has cost no more than
// the time that it is given.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <string>

#include "output/png_encoder.h"
#include "output/resampler.h"
#include "platform/isolation/decoding_main.h"
#include "platform/isolation/decoding_process.h"
#include "platform/isolation/isolated_pictures.h"
#include "platform/posix/process.h"

namespace {

using namespace tessarine;

constexpr rlim_t memoryLimit = rlim_t{4} << 30;  // bytes of address space
constexpr unsigned waitingLimit = 60;            // seconds

enum Outcome { wasRead = 10, wasRefused, hadItsDecoderCrash, hadItsDecoderStopped, wasHalfRead };

Outcome refusedAs(const std::string& reason) {
  if (reason == decoderCrashed) return hadItsDecoderCrash;
  if (reason == decoderTookTooLong) return hadItsDecoderStopped;
  return reason.empty() ? wasHalfRead : wasRefused;
}

Outcome process(const std::string& path) {
  IsolatedPictures pictures;
  auto decoded = pictures.read(path);
  if (!decoded.picture) return refusedAs(decoded.refusal);
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
  ::setrlimit(RLIMIT_AS, &memory);
  ::alarm(waitingLimit);
  ::_exit(process(path));
}

struct Tally {
  int read = 0, refused = 0, decodersCrashed = 0, decodersStopped = 0, crashed = 0, hung = 0;

  void count(int status, const char* path) {
    const int outcome = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
    if (outcome == wasRead) {
      ++read;
    } else if (outcome == wasRefused) {
      ++refused;
    } else if (outcome == hadItsDecoderCrash) {
      ++decodersCrashed;
      std::printf("decoder crashed: %s\n", path);
    } else if (outcome == hadItsDecoderStopped) {
      ++decodersStopped;
      std::printf("decoder stopped: %s\n", path);
    } else if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) {
      ++hung;
      std::printf("hung: %s\n", path);
    } else {
      ++crashed;
      std::printf("crashed (%d): %s\n", status, path);
    }
  }
};

}  // namespace

int main(int argc, char** argv) {
  setUpProcess();
  decodeIfAsked(argc, argv);
  Tally tally;
  for (std::string path; std::getline(std::cin, path);) {
    const pid_t child = ::fork();
    if (child == 0) run(path);
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child) return 1;
    tally.count(status, path.c_str());
  }
  std::printf("%d read, %d refused, %d with their decoder crashed, %d with it stopped\n",
              tally.read, tally.refused, tally.decodersCrashed, tally.decodersStopped);
  std::printf("%d crashed, %d hung\n", tally.crashed, tally.hung);
  return tally.crashed + tally.hung + tally.decodersCrashed == 0 ? 0 : 1;
}
