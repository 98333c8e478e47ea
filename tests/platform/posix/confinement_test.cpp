#include "platform/posix/confinement.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <string>

#include "platform/posix/granted_files.h"
#include "tests/support/in_child.h"
#include "tests/support/kernel.h"
#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

namespace {

namespace fs = std::filesystem;

std::string told(bool succeeded) {
  return succeeded ? "allowed" : std::strerror(errno);
}

int onAbstractSocket(const std::string& name, int (*call)(int, const sockaddr*, socklen_t)) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  // Behind a null byte.
  const auto length = name.copy(address.sun_path + 1, sizeof address.sun_path - 1);
  const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
  return call(::socket(AF_UNIX, SOCK_DGRAM, 0), reinterpret_cast<const sockaddr*>(&address), size);
}

int onLoopback(int (*call)(int, const sockaddr*, socklen_t)) {
  const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return call(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

class ConfinementTest : public ::testing::Test {
 protected:
  ConfinementTest() {
    fs::create_directories(root / "icons");
    fs::create_directories(root / "empty");
    writeFile(root / "picture", "picture");
    writeFile(root / "secret", "secret");
    writeFile(root / "icons/old.png", "old");
  }

  void SetUp() override {
    if (confined([] { return true; }) != "allowed") GTEST_SKIP() << "the kernel cannot confine";
  }

  // What a confined process, or none that the kernel cannot confine, says of an action.
  std::string confined(const std::function<bool()>& action) {
    return inChild([&] {
      const Confinement confinement{{"/usr", root / "picture", root / "missing"}, {root / "icons"}};
      if (!confine(confinement)) return std::string("the kernel cannot confine");
      return told(action());
    });
  }
  std::string path(const char* name) const { return root / name; }

  TemporaryFolder folder;
  const fs::path root = folder.path();
};

}  // namespace

TEST_F(ConfinementTest, LeavesWhatIsNamed) {
  EXPECT_EQ(confined([&] { return ::open(path("picture").c_str(), O_RDONLY) >= 0; }), "allowed");
  EXPECT_EQ(confined([&] { return ::mkdir(path("icons/sub").c_str(), 0777) == 0; }), "allowed");
  EXPECT_EQ(confined([&] { return ::unlink(path("icons/old.png").c_str()) == 0; }), "allowed");
}

TEST_F(ConfinementTest, LeavesEveryWriteToTheFolder) {
  EXPECT_EQ(confined([&] {
              GrantedFiles files;
              files.grant(path("icons"));
              const std::vector<std::uint8_t> bytes(1000, 'x');
              return !files.writeInPlace(path("icons/old.png"), bytes) &&
                     !files.writeInPlace(path("icons/new.png"), bytes) &&
                     !files.writeAtomically(path("icons/Contents.json"), bytes) &&
                     !files.writeAtomically(path("icons/Contents.json"), bytes);
            }),
            "allowed");
}

TEST_F(ConfinementTest, RefusesToReadAnythingElse) {
  EXPECT_EQ(confined([&] { return ::open(path("secret").c_str(), O_RDONLY) >= 0; }),
            "Permission denied");
  EXPECT_EQ(confined([&] { return ::open("/etc/passwd", O_RDONLY) >= 0; }), "Permission denied");
}

TEST_F(ConfinementTest, RefusesToWriteAnythingElse) {
  const std::string before = snapshot(root);
  for (const char* name : {"picture", "secret", "new"}) {
    EXPECT_EQ(confined([&] { return ::open(path(name).c_str(), O_WRONLY | O_CREAT, 0666) >= 0; }),
              "Permission denied");
  }
  EXPECT_EQ(confined([&] { return ::mkdir(path("sub").c_str(), 0777) == 0; }), "Permission denied");
  EXPECT_EQ(confined([&] { return ::rmdir(path("empty").c_str()) == 0; }), "Permission denied");
  EXPECT_EQ(confined([&] { return ::unlink(path("secret").c_str()) == 0; }), "Permission denied");
  EXPECT_NE(confined([&] {
              return ::rename(path("icons/old.png").c_str(), path("secret").c_str()) == 0;
            }),
            "allowed");
  EXPECT_EQ(snapshot(root), before);
}

TEST_F(ConfinementTest, StartsNoPrograms) {
  EXPECT_EQ(confined([] { return ::execl("/usr/bin/true", "true", nullptr) == 0; }),
            "Permission denied");
}

TEST_F(ConfinementTest, UsesNoTCP) {
  if (landlockVersion() < 4) GTEST_SKIP() << "the kernel cannot take TCP away";
  EXPECT_EQ(confined([] { return onLoopback(::bind) == 0; }), "Permission denied");
  EXPECT_EQ(confined([] { return onLoopback(::connect) == 0; }), "Permission denied");
}

TEST_F(ConfinementTest, ReachesNoOtherProcess) {
  if (landlockVersion() < 6) GTEST_SKIP() << "the kernel cannot take signals and sockets away";
  EXPECT_EQ(confined([] { return ::kill(::getppid(), 0) == 0; }), "Operation not permitted");
  ASSERT_EQ(onAbstractSocket(root, ::bind), 0);
  EXPECT_EQ(confined([&] { return onAbstractSocket(root, ::connect) == 0; }),
            "Operation not permitted");
}

}  // namespace tessarine::testing
