#include "platform/posix/process.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <functional>
#include <string>
#include <vector>

#include "platform/posix/standard_console.h"
#include "tests/support/in_child.h"
#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

namespace {

const std::string survived = "survived";

// What a child still prints after `work`, with its standard output sent to `path`.
std::string printingTo(const std::string& path) {
  return inChild([&] {
    setUpProcess();
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
    if (file < 0 || ::dup2(file, STDOUT_FILENO) < 0) return std::string("no output");
    StandardConsole().printLine("first");
    StandardConsole().printLine("second");
    return survived;
  });
}

}  // namespace

TEST(StandardConsole, WritesEachLineAtOnce) {
  TemporaryFolder folder;
  const std::string output = folder.path() / "output";
  // The child ends without flushing anything.
  EXPECT_EQ(printingTo(output), survived);
  EXPECT_EQ(contentsOf(output), "first\nsecond\n");
}

TEST(StandardConsole, SurvivesAFullDevice) {
  EXPECT_EQ(printingTo("/dev/full"), survived);
}

TEST(StandardConsole, SurvivesABrokenPipe) {
  EXPECT_EQ(inChild([] {
              setUpProcess();
              std::array<int, 2> ends{};
              if (::pipe(ends.data()) != 0) return std::string("no pipe");
              ::close(ends[0]);
              ::dup2(ends[1], STDOUT_FILENO);
              StandardConsole().printLine("lost");
              return survived;
            }),
            survived);
}

TEST(Process, HoldsTheNumbersOfClosedStreams) {
  EXPECT_EQ(inChild([] {
              for (int stream = 0; stream <= STDERR_FILENO; ++stream) ::close(stream);
              setUpProcess();
              const int next = ::open("/dev/null", O_RDONLY);
              return next > STDERR_FILENO ? survived : "a stream's number was given away";
            }),
            survived);
}

TEST(Process, TakesAFileSizeLimitAsAFailedWrite) {
  TemporaryFolder folder;
  EXPECT_EQ(inChild([&] {
              setUpProcess();
              const rlimit none{0, 0};
              const int file = ::open((folder.path() / "x").c_str(), O_WRONLY | O_CREAT, 0666);
              if (::setrlimit(RLIMIT_FSIZE, &none) != 0) return std::string("no limit");
              const bool failed = ::write(file, "x", 1) < 0 && errno == EFBIG;
              return failed ? survived : "the limit did not hold";
            }),
            survived);
}

TEST(Process, LeavesTheSignalsOfStartedProgramsAlone) {
  const TemporaryFolder folder;
  const auto ignoredAfter = [&](const std::function<void()>& preparation) {
    const std::string output = folder.path() / "output";
    inChild([&] {
      preparation();
      const int file = ::open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
      ::dup2(file, STDOUT_FILENO);
      ::execl("/bin/grep", "grep", "SigIgn", "/proc/self/status", nullptr);
      return std::string();
    });
    return contentsOf(output);
  };
  // The tests themselves may have been started to ignore some, as in the background.
  const std::string before = ignoredAfter([] {});
  EXPECT_TRUE(before.starts_with("SigIgn:"));
  EXPECT_EQ(ignoredAfter(setUpProcess), before);
}

TEST(Process, CanWaitForItsChildrenWhateverItWasStartedWith) {
  EXPECT_EQ(inChild([] {
              ::signal(SIGCHLD, SIG_IGN);
              setUpProcess();
              const pid_t child = ::fork();
              if (child == 0) ::_exit(0);
              return ::waitpid(child, nullptr, 0) == child ? survived : "nothing to wait for";
            }),
            survived);
}

TEST(Process, EndsSilentlyOnAnExceptionThatNobodyCatches) {
  const auto fail = [](std::size_t index) noexcept {
    setUpProcess();
    return std::vector<int>().at(index);
  };
  EXPECT_EXIT(fail(1), ::testing::KilledBySignal(SIGABRT), "^$");
}

}  // namespace tessarine::testing
