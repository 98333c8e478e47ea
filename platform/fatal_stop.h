#pragma once

#include <optional>
#include <utility>

namespace tessarine {

// Ends the program at once and silently, in every build type. For states that the interface rules
// out. Called from `require`, `required` and `Outlet` alone, so that every such state can be found
// by name.
[[noreturn]] void fatalStop() noexcept;

// A fatal stop unless the condition holds.
inline void require(bool condition) {
  if (!condition) fatalStop();
}

// The value, or a fatal stop when there is none.
template <class T>
[[nodiscard]] T required(std::optional<T> value) {
  if (!value) fatalStop();
  return *std::move(value);
}

}  // namespace tessarine
