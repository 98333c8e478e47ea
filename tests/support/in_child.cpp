#include "tests/support/in_child.h"

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <exception>
#include <stdexcept>

namespace tessarine::testing {

namespace {

[[noreturn]] void answer(int pipe, const std::function<std::string()>& work) {
  std::string text;
  try {
    text = work();
  } catch (const std::exception& exception) {
    text = exception.what();
  }
  const bool sent = ::write(pipe, text.data(), text.size()) == static_cast<ssize_t>(text.size());
  // Not exit(): the parent's exit handlers are no business of the child.
  ::_exit(sent ? 0 : 1);
}

}  // namespace

std::string inChild(const std::function<std::string()>& work) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no child");
  if (child == 0) answer(ends[1], work);
  ::close(ends[1]);
  std::string text;
  std::array<char, 4096> buffer;
  for (ssize_t count = 0; (count = ::read(ends[0], buffer.data(), buffer.size())) > 0;) {
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  ::close(ends[0]);
  int status = 0;
  if (::waitpid(child, &status, 0) != child) throw std::runtime_error("the child is lost");
  if (WIFSIGNALED(status)) return "(ended by signal " + std::to_string(WTERMSIG(status)) + ")";
  if (WEXITSTATUS(status) != 0) {
    return "(ended with status " + std::to_string(WEXITSTATUS(status)) + ")";
  }
  return text;
}

void becomeOrdinaryUser() {
  if (::setgroups(0, nullptr) != 0 || ::setgid(ordinaryUser) != 0 || ::setuid(ordinaryUser) != 0) {
    throw std::runtime_error("cannot become an ordinary user");
  }
}

bool isRoot() {
  return ::geteuid() == 0;
}

}  // namespace tessarine::testing
