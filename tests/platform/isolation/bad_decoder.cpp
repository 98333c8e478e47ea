// Stands in for the decoding process and does what the picture says behind its first six bytes.
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <string>

#include "platform/isolation/decoding_main.h"
#include "platform/picture.h"
#include "platform/posix/write_whole.h"
#include "platform/vips/regular_file.h"

namespace {

using namespace tessarine;

void send(const void* bytes, std::size_t count) {
  writeWhole(STDOUT_FILENO, {static_cast<const std::uint8_t*>(bytes), count});
}

void sendSize(std::int64_t width, std::int64_t height) {
  const PixelSize size{width, height};
  send(&size, sizeof size);
}

void refuse(const std::string& reason) {
  sendSize(0, 0);
  send(reason.data(), reason.size());
}

std::string opened(const std::string& path, int flags) {
  return ::open(path.c_str(), flags, 0666) >= 0 ? "opened" : std::strerror(errno);
}

// All that came with the start: the number of open files, and the environment.
std::string inheritance() {
  // The folder itself is open while it is read.
  const auto files = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}) - 1;
  std::string text = std::to_string(files) + " files";
  for (char** variable = environ; *variable != nullptr; ++variable) {
    text.append(", ").append(*variable);
  }
  return text;
}

void obey(const std::string& word, const std::string& operand) {
  if (word == "crash") ::raise(SIGSEGV);
  if (word == "stop-short") sendSize(100, 100);
  if (word == "stop-early") send("half", 4);
  if (word == "refuse") refuse(operand);
  if (word == "refuse-at-length") refuse(std::string(1 << 20, 'x'));
  if (word == "overstate") sendSize(std::int64_t{1} << 62, 4);
  if (word == "exceed") {
    sendSize(1, 1);
    send(std::string(1 << 20, '\x7f').data(), 1 << 20);
  }
  // A picture that can be written to is refused.
  if (word == "write-picture" && ::pwrite(STDIN_FILENO, "x", 1, 0) < 0 &&
      ::ftruncate(STDIN_FILENO, 1 << 20) < 0) {
    sendSize(1, 1);
    send("\1\2\3\4", 4);
  }
  if (word == "inherit") refuse(inheritance());
  confineDecoding();
  if (word == "read") refuse(opened(operand, O_RDONLY));
  if (word == "write") refuse(opened(operand, O_WRONLY | O_CREAT));
  if (word == "grow") {
    refuse(MemoryBlock::allocate(std::size_t{5} << 30) ? "memory given" : "memory refused");
  }
  if (word == "leave-group") ::setpgid(0, ::getpgid(::getppid()));
  if (word == "hang" || word == "leave-group") {
    // So that a test that fails leaves nothing behind.
    ::alarm(60);
    while (true) ::pause();
  }
}

}  // namespace

int main() {
  const RegularFile picture(STDIN_FILENO);
  const auto bytes = picture.bytes();
  if (!bytes) return 1;
  const std::string text(bytes->bytes().begin() + 6, bytes->bytes().end());
  const auto space = text.find(' ');
  obey(text.substr(0, space), space == std::string::npos ? "" : text.substr(space + 1));
}
