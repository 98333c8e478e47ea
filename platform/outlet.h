#pragma once

#include "platform/fatal_stop.h"

namespace tessarine {

// A weak reference to a control that the interface description owns. Using one that has not been
// connected is a programming error and stops the program.
template <class Control>
class Outlet {
 public:
  Outlet() = default;
  // The control must outlive every use of the outlet.
  void connect(Control& control) { control_ = &control; }

  Control& operator*() const {
    if (control_ == nullptr) fatalStop();
    return *control_;
  }
  Control* operator->() const { return &**this; }

 private:
  Control* control_ = nullptr;
};

}  // namespace tessarine
