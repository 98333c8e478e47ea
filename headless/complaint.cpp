#include "headless/complaint.h"

#include <cstdio>

#include "headless/usage.h"

namespace tessarine {

void complain(const std::string& reason) {
  std::fprintf(stderr, "%s: %s\n", programName, reason.c_str());
}

}  // namespace tessarine
