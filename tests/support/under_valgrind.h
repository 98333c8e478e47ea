#pragma once

namespace tessarine::testing {

// Whether valgrind runs this process. It starts other programs in its own way.
bool underValgrind();

}  // namespace tessarine::testing
