#pragma once

namespace tessarine {

// To be called first in `main`. Afterwards a broken pipe, a file size limit and a closed standard
// stream are failures of the call that meets them and never end the program, an exception that
// nobody catches, such as that of exhausted memory, ends it silently, and children can be waited
// for.
void setUpProcess();

}  // namespace tessarine
