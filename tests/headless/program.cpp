#include "tests/headless/program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sstream>
#include <stdexcept>

#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

namespace {

void sendTo(const std::filesystem::path& file, int stream) {
  const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  if (descriptor < 0 || ::dup2(descriptor, stream) < 0) ::_exit(99);
}

}  // namespace

Outcome runProgram(const std::vector<std::string>& arguments,
                   const std::function<void()>& prepare) {
  const TemporaryFolder folder;
  std::vector<std::string> words = arguments;
  words.insert(words.begin(), TESSARINE_HEADLESS);
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no child");
  if (child == 0) {
    sendTo(folder.path() / "output", STDOUT_FILENO);
    sendTo(folder.path() / "error", STDERR_FILENO);
    if (prepare) prepare();
    ::execv(argv[0], argv.data());
    ::_exit(99);
  }
  int status = 0;
  if (::waitpid(child, &status, 0) != child) throw std::runtime_error("the program is lost");
  return {WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status),
          contentsOf(folder.path() / "output"), contentsOf(folder.path() / "error")};
}

std::vector<std::string> linesOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace tessarine::testing
