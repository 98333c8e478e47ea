#pragma once

namespace tessarine::testing {

// While it lives, every `new` throws std::bad_alloc; malloc and calloc still give memory. For the
// test programs that refused_new.cpp is linked into.
class RefusedNew {
 public:
  RefusedNew();
  ~RefusedNew();
  RefusedNew(const RefusedNew&) = delete;
  RefusedNew& operator=(const RefusedNew&) = delete;
};

}  // namespace tessarine::testing
