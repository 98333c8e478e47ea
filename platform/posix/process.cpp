#include "platform/posix/process.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <exception>

namespace tessarine {

namespace {

// A handler instead of SIG_IGN, which programs started from here, such as a file manager, would
// inherit.
void passOver(int signal) {
  struct sigaction action {};
  action.sa_handler = [](int) {};
  action.sa_flags = SA_RESTART;
  ::sigaction(signal, &action, nullptr);
}

// Otherwise the next file opened would take the number, and be written to as the missing stream.
void holdStandardStreams() {
  int number = 0;
  while (number >= 0 && number <= STDERR_FILENO) number = ::open("/dev/null", O_RDWR);
  if (number > STDERR_FILENO) ::close(number);
}

}  // namespace

void setUpProcess() {
  holdStandardStreams();
  passOver(SIGPIPE);
  passOver(SIGXFSZ);
  // Started with it ignored, the program could not wait for its children.
  ::signal(SIGCHLD, SIG_DFL);
  // No new-handler besides: picture libraries catch the exception and refuse the picture.
  std::set_terminate([] { std::abort(); });
}

}  // namespace tessarine
