#pragma once

#include <string>

namespace tessarine {

// The platform's application-modal alert.
class Alert {
 public:
  virtual ~Alert() = default;

  // A warning with one button; returns when it has been closed.
  virtual void runWarning(const std::string& message, const std::string& button) = 0;
};

}  // namespace tessarine
