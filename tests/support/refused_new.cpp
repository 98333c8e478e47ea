#include "tests/support/refused_new.h"

#include <cstdlib>
#include <new>

namespace {

bool refuses = false;

}  // namespace

void* operator new(std::size_t size) {
  void* memory = refuses ? nullptr : std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace tessarine::testing {

RefusedNew::RefusedNew() {
  refuses = true;
}

RefusedNew::~RefusedNew() {
  refuses = false;
}

}  // namespace tessarine::testing
