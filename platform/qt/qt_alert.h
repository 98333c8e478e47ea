#pragma once

#include "platform/alert.h"

namespace tessarine {

class QtAlert final : public Alert {
 public:
  void runWarning(const std::string& message, const std::string& button) override;
};

}  // namespace tessarine
