#pragma once

#include <functional>
#include <string>

namespace tessarine::testing {

// Runs `work` in a child process and answers with its text; "(ended by signal N)" or "(ended with
// status N)" when the child did not end well, as with an error that valgrind finds in it. Limits,
// rights and confinements taken on in `work` end with it.
std::string inChild(const std::function<std::string()>& work);

// Gives up root's rights for those of an ordinary user, for good. For use in a child.
void becomeOrdinaryUser();

// The ordinary user that `becomeOrdinaryUser` becomes.
inline constexpr unsigned ordinaryUser = 65534;

bool isRoot();

}  // namespace tessarine::testing
