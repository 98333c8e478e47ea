#include "headless/monitored_files.h"

#include <unistd.h>

#include <cstdio>

#include "platform/posix/one_line.h"

namespace tessarine {

namespace {

// To the line's beginning, and clear what stands there.
constexpr const char* clearLine = "\r\x1b[K";

}  // namespace

MonitoredFiles::MonitoredFiles(Files& files, std::size_t total)
    : files_(files), total_(total), onTerminal_(::isatty(STDERR_FILENO) == 1) {}

MonitoredFiles::~MonitoredFiles() {
  if (onTerminal_ && begun_ > 0) std::fputs(clearLine, stderr);
}

void MonitoredFiles::begin(const std::string& path) {
  ++begun_;
  if (!onTerminal_) return;
  const std::string name = oneLine(path.substr(path.rfind('/') + 1));
  std::fprintf(stderr, "%s%zu/%zu %s", clearLine, begun_, total_, name.c_str());
}

std::optional<std::string> MonitoredFiles::end(std::optional<std::string> failure) {
  if (!failure) ++written_;
  // The failure's own line follows, on what may be the same terminal.
  if (failure && onTerminal_) std::fputs(clearLine, stderr);
  return failure;
}

std::optional<std::string> MonitoredFiles::writeInPlace(const std::string& path,
                                                        std::span<const std::uint8_t> bytes) {
  begin(path);
  return end(files_.writeInPlace(path, bytes));
}

std::optional<std::string> MonitoredFiles::writeAtomically(const std::string& path,
                                                           std::span<const std::uint8_t> bytes) {
  begin(path);
  return end(files_.writeAtomically(path, bytes));
}

}  // namespace tessarine
