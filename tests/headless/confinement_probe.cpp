// Preloaded into the program: when the program renames its catalogue into place, tries what a
// confined program must not be able to do, and says on standard error what came of it.
#include <dlfcn.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

void tell(const char* action, bool succeeded) {
  std::fprintf(stderr, "%s: %s\n", action, succeeded ? "allowed" : std::strerror(errno));
}

void probe() {
  tell("read", ::open("/etc/passwd", O_RDONLY) >= 0);
  tell("write", ::open(std::getenv("PROBE_FILE"), O_WRONLY | O_CREAT, 0666) >= 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
  tell("bind", ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0);
}

}  // namespace

extern "C" int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
  using Real = int (*)(int, const char*, int, const char*);
  static const auto real = reinterpret_cast<Real>(::dlsym(RTLD_NEXT, "renameat"));
  probe();
  return real(fromFolder, from, toFolder, to);
}
