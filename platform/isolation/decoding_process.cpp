#include "platform/isolation/decoding_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <span>
#include <utility>
#include <vector>

#include "platform/isolation/decoding_main.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/one_line.h"
#include "platform/posix/retried.h"

namespace tessarine {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t longestReason = 200;  // bytes

// What the picture libraries ask the environment for; above all, whose fonts to take.
constexpr std::array inheritedVariables{"HOME", "LANG", "LC_ALL", "LC_CTYPE", "LD_LIBRARY_PATH"};

std::vector<std::string> inheritedEnvironment() {
  std::vector<std::string> environment;
  for (const char* name : inheritedVariables) {
    if (const char* value = std::getenv(name)) {
      environment.push_back(std::string(name) + "=" + value);
    }
  }
  return environment;
}

std::vector<char*> nullTerminated(std::vector<std::string>& words) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return pointers;
}

// A program with these as its standard input and output and no other file of ours, in a group of
// its own. It is killed with its holder, if it still runs.
class Process {
 public:
  Process(const std::string& program, int input, int output) {
    std::vector<std::string> words{program, decodingArgument};
    std::vector<std::string> variables = inheritedEnvironment();
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    ::posix_spawn_file_actions_init(&files);
    ::posix_spawnattr_init(&attributes);
    const bool arranged =
        ::posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO) == 0 &&
        ::posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO) == 0 &&
        ::posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0) == 0 &&
        ::posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1) == 0 &&
        ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP) == 0;
    error_ = arranged
                 ? ::posix_spawn(&id_, program.c_str(), &files, &attributes,
                                 nullTerminated(words).data(), nullTerminated(variables).data())
                 : ENOMEM;
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&files);
  }
  ~Process() {
    if (error_ != 0) return;
    // By itself too: it may have left its group.
    ::kill(id_, SIGKILL);
    ::kill(-id_, SIGKILL);
    retried([&] { return ::waitpid(id_, nullptr, 0); });
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  // Why it could not be started, or 0.
  int error() const { return error_; }

 private:
  pid_t id_ = 0;
  int error_ = 0;
};

// How many bytes arrived in `room` before the other end was closed or the time was over.
std::size_t receive(const Descriptor& pipe, std::span<std::uint8_t> room,
                    Clock::time_point deadline) {
  std::size_t count = 0;
  while (count < room.size()) {
    // Rounded up, so that a wait in vain ends behind the deadline.
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) break;
    pollfd waiting{pipe.number(), POLLIN, 0};
    const int ready = ::poll(&waiting, 1, static_cast<int>(left));
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0) break;
    const auto got = ::read(pipe.number(), room.data() + count, room.size() - count);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    count += static_cast<std::size_t>(got);
  }
  return count;
}

Decoded refused(std::string reason) {
  return {std::nullopt, std::move(reason)};
}

Decoded brokenOff(Clock::time_point deadline) {
  return refused(Clock::now() < deadline ? decoderCrashed : decoderTookTooLong);
}

Decoded receiveAnswer(const Descriptor& pipe, Clock::time_point deadline) {
  PixelSize size;
  if (receive(pipe, {reinterpret_cast<std::uint8_t*>(&size), sizeof size}, deadline) !=
      sizeof size) {
    return brokenOff(deadline);
  }
  const auto byteCount = Bitmap::byteCount(size);
  if (!byteCount) {
    std::string reason(longestReason, '\0');
    reason.resize(
        receive(pipe, {reinterpret_cast<std::uint8_t*>(reason.data()), reason.size()}, deadline));
    return reason.empty() ? brokenOff(deadline) : refused(oneLine(reason));
  }
  auto pixels = MemoryBlock::allocate(*byteCount);
  if (!pixels) return refused("the picture is too large for this machine");
  if (receive(pipe, pixels->bytes(), deadline) != *byteCount) return brokenOff(deadline);
  return {Picture{size, Bitmap(size, ByteBuffer(*std::move(pixels)))}, {}};
}

}  // namespace

Decoded decodeInProcess(const std::string& program, int picture,
                        std::chrono::milliseconds patience) {
  const auto deadline = Clock::now() + patience;
  std::array<int, 2> ends{-1, -1};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return refused(std::strerror(errno));
  const Descriptor ours(ends[0]);
  Descriptor theirs(ends[1]);
  // Pixels come in large portions, where the system gives room for them.
  ::fcntl(ours.number(), F_SETPIPE_SZ, 1 << 20);
  const Process process(program, picture, theirs.number());
  if (process.error() != 0) {
    return refused(std::string("its decoder cannot be started: ") + std::strerror(process.error()));
  }
  // So that the end of the process is the end of the answer.
  theirs.close();
  return receiveAnswer(ours, deadline);
}

}  // namespace tessarine
