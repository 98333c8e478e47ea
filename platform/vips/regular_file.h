#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/bytes.h"

namespace tessarine {

// Files beyond this many bytes are refused: as many as the largest bitmap takes.
inline constexpr std::int64_t maximumFileBytes = std::int64_t{1} << 30;

// A regular file that is open for reading. Folders, pipes, devices and sockets are refused without
// waiting for anybody.
class RegularFile {
 public:
  explicit RegularFile(const std::string& path);
  // Takes over a descriptor that is open for reading.
  explicit RegularFile(int descriptor);
  ~RegularFile();
  RegularFile(const RegularFile&) = delete;
  RegularFile& operator=(const RegularFile&) = delete;

  // Why the file cannot be read; empty when it can.
  const std::string& refusal() const { return refusal_; }
  int descriptor() const { return descriptor_; }
  // The first bytes, as many as fit or as there are; none when reading fails.
  std::span<const std::uint8_t> head(std::span<std::uint8_t> room) const;
  // The whole file; nothing when reading or memory fails.
  std::optional<ByteBuffer> bytes() const;

 private:
  void check();

  std::int64_t size_ = 0;
  int descriptor_ = -1;
  std::string refusal_;
};

}  // namespace tessarine
