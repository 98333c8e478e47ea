#pragma once

#include <cstddef>

namespace tessarine::testing {

// Not under the address sanitizer, which takes address space and memory for itself.
bool memoryCanBeLimited();

// Leaves this process no more than `bytes` of memory beyond what it holds, for good. For a death
// test of its own process ("threadsafe"), where no other test has left free memory behind.
void leaveMemory(std::size_t bytes);

}  // namespace tessarine::testing
