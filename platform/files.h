#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tessarine {

// Writes files, only beneath the folder that the user picked for the run under way. Both
// operations answer with nothing on success and otherwise with a description of the failure: one
// line that names the file and the cause.
class Files {
 public:
  virtual ~Files() = default;

  // Replaces the contents of the file itself; a failure may leave it incomplete.
  virtual std::optional<std::string> writeInPlace(const std::string& path,
                                                  std::span<const std::uint8_t> bytes) = 0;
  // The file holds its old contents or all of the new ones, at every moment.
  virtual std::optional<std::string> writeAtomically(const std::string& path,
                                                     std::span<const std::uint8_t> bytes) = 0;
};

}  // namespace tessarine
