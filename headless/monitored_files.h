#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/files.h"

namespace tessarine {

// Files that counts what was written and, on a terminal, shows how far the run has come.
class MonitoredFiles final : public Files {
 public:
  // `files` must outlive it; `total` is the number of files that the run is asked for.
  MonitoredFiles(Files& files, std::size_t total);
  // Clears the progress.
  ~MonitoredFiles() override;
  MonitoredFiles(const MonitoredFiles&) = delete;
  MonitoredFiles& operator=(const MonitoredFiles&) = delete;

  std::optional<std::string> writeInPlace(const std::string& path,
                                          std::span<const std::uint8_t> bytes) override;
  std::optional<std::string> writeAtomically(const std::string& path,
                                             std::span<const std::uint8_t> bytes) override;

  // Whether as many files were written as were asked for.
  bool complete() const { return written_ == total_; }

 private:
  void begin(const std::string& path);
  std::optional<std::string> end(std::optional<std::string> failure);

  Files& files_;
  std::size_t total_;
  bool onTerminal_;
  std::size_t begun_ = 0;
  std::size_t written_ = 0;
};

}  // namespace tessarine
