#include "platform/isolation/decoding_main.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <span>
#include <string_view>

#include "platform/posix/confinement.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/write_whole.h"
#include "platform/vips/decoder.h"
#include "platform/vips/regular_file.h"

namespace tessarine {

namespace {

// Four times the largest bitmap.
constexpr rlim_t maximumMemory = rlim_t{4} << 30;
// For a process that nobody stops any more.
constexpr rlim_t maximumProcessorSeconds = 60;

// Where the picture libraries keep their modules, fonts, colour profiles and settings; and what
// their run-time libraries ask the system about this process.
std::vector<std::string> readablePaths() {
  std::vector<std::string> paths{
      "/usr",
      "/lib",
      "/lib64",
      "/app",
      "/run/host",
      "/etc/fonts",
      "/etc/ImageMagick-6",
      "/etc/ImageMagick-7",
      "/var/cache/fontconfig",
      "/proc/self",
      "/dev/null",
      "/dev/urandom",
  };
  if (const char* home = std::getenv("HOME")) {
    for (const char* fonts :
         {"/.fonts", "/.local/share/fonts", "/.config/fontconfig", "/.cache/fontconfig"}) {
      paths.push_back(std::string(home) + fonts);
    }
  }
  return paths;
}

void limit(__rlimit_resource_t resource, rlim_t most) {
  rlimit bound{};
  if (::getrlimit(resource, &bound) != 0) return;
  bound.rlim_max = std::min(bound.rlim_max, most);
  bound.rlim_cur = std::min(bound.rlim_cur, bound.rlim_max);
  ::setrlimit(resource, &bound);
}

// In bytes: what the program's own libraries, or a sanitizer, have taken already.
rlim_t memoryInUse() {
  std::ifstream pages("/proc/self/statm");
  rlim_t data = 0;
  for (int field = 0; field < 6; ++field) pages >> data;
  return data * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
}

template <class Item>
void send(const Descriptor& answer, std::span<const Item> items) {
  // Nobody is left to hear of a failure.
  writeWhole(answer.number(),
             {reinterpret_cast<const std::uint8_t*>(items.data()), items.size_bytes()});
}

void send(const Descriptor& answer, const Decoded& decoded) {
  const Bitmap* bitmap =
      decoded.picture && decoded.picture->bitmap ? &*decoded.picture->bitmap : nullptr;
  const PixelSize size = bitmap == nullptr ? PixelSize{} : bitmap->size();
  send(answer, std::span<const PixelSize>(&size, 1));
  if (bitmap != nullptr) {
    send(answer, bitmap->pixels());
  } else {
    send(answer, std::span<const char>(decoded.refusal));
  }
}

// Whether the program that asked is gone: it may have ended before this process was tied to it.
bool isUnheard(const Descriptor& answer) {
  pollfd pipe{answer.number(), 0, 0};
  return ::poll(&pipe, 1, 0) > 0;
}

}  // namespace

void decodeIfAsked(int argc, char** argv) {
  if (argc != 2 || std::string_view(argv[1]) != decodingArgument) return;
  const Descriptor answer(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
  // What a library prints must not get into the answer.
  ::dup2(STDERR_FILENO, STDOUT_FILENO);
  confineDecoding();
  if (isUnheard(answer)) ::_exit(EXIT_FAILURE);
  send(answer, decodePicture(RegularFile(STDIN_FILENO)));
  // Without leave from the libraries, whose exit handlers have nothing to save.
  ::_exit(EXIT_SUCCESS);
}

void confineDecoding() {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  // Where memory runs out, this process goes first.
  std::ofstream("/proc/self/oom_score_adj") << 1000;
  limit(RLIMIT_DATA, memoryInUse() + maximumMemory);
  limit(RLIMIT_CPU, maximumProcessorSeconds);
  limit(RLIMIT_NOFILE, 256);
  limit(RLIMIT_FSIZE, 0);
  limit(RLIMIT_CORE, 0);
  // Older kernels have no confinement; the limits stand without it.
  static_cast<void>(confine({readablePaths(), {}}));
}

}  // namespace tessarine
