#pragma once

#include <sys/types.h>

#include <fstream>
#include <string>

#include "platform/posix/confinement.h"
#include "tests/support/in_child.h"
#include "tests/support/temporary_folder.h"

// A decoding process seen from outside.
namespace tessarine::testing {

inline bool kernelConfines() {
  return inChild([] { return confine({}) ? "yes" : "no"; }) == "yes";
}

// The decoder that `parent` waits for, or 0 when there is none.
inline pid_t decoderOf(pid_t parent) {
  const std::string id = std::to_string(parent);
  pid_t child = 0;
  std::ifstream("/proc/" + id + "/task/" + id + "/children") >> child;
  return child;
}

// Whether it has taken on all limits and, as far as the kernel can, its confinement.
inline bool isConfined(pid_t decoder) {
  static const bool kernelCan = kernelConfines();
  const std::string folder = "/proc/" + std::to_string(decoder);
  const auto says = [&](const char* file, const char* line) {
    return contentsOf(folder + file).find(line) != std::string::npos;
  };
  return decoder != 0 && says("/limits", "Max file size             0 ") &&
         (!kernelCan || says("/status", "NoNewPrivs:\t1"));
}

}  // namespace tessarine::testing
