#include "headless/monitored_files.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>

#include "tests/headless/program.h"
#include "tests/headless/source_picture.h"
#include "tests/support/recording_platform.h"

namespace tessarine::testing {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

TEST(MonitoredFiles, AreCompleteWhenAllWereWritten) {
  RecordingPlatform recording;
  MonitoredFiles files(recording.files, 2);
  EXPECT_EQ(files.writeInPlace("/f/good.png", {}), std::nullopt);
  EXPECT_FALSE(files.complete());
  EXPECT_EQ(files.writeAtomically("/f/Contents.json", {}), std::nullopt);
  EXPECT_TRUE(files.complete());
  EXPECT_TRUE(recording.files.written.contains("/f/good.png"));
}

TEST(MonitoredFiles, AreNotCompleteWhenAWriteFails) {
  RecordingPlatform recording;
  recording.files.failing = {"/f/bad.png", "/f/Contents.json"};
  MonitoredFiles inPlace(recording.files, 1);
  EXPECT_NE(inPlace.writeInPlace("/f/bad.png", {}), std::nullopt);
  EXPECT_FALSE(inPlace.complete());
  MonitoredFiles atomic(recording.files, 1);
  EXPECT_NE(atomic.writeAtomically("/f/Contents.json", {}), std::nullopt);
  EXPECT_FALSE(atomic.complete());
}

namespace {

// What the program shows on a terminal while it runs; standard output goes elsewhere.
std::string shownOnATerminal(const std::vector<std::string>& arguments) {
  const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
  if (terminal < 0 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0) return "no terminal";
  const int side = ::open(::ptsname(terminal), O_RDWR | O_NOCTTY);
  runProgram(arguments, [&] { ::dup2(side, STDERR_FILENO); });
  std::string shown;
  std::array<char, 4096> buffer;
  for (ssize_t count = 0; (count = ::read(terminal, buffer.data(), buffer.size())) > 0;) {
    shown.append(buffer.data(), static_cast<std::size_t>(count));
  }
  ::close(side);
  ::close(terminal);
  return shown;
}

}  // namespace

TEST(Progress, IsShownOnATerminalAndClearedInTheEnd) {
  const SourcePicture source;
  const std::string shown = shownOnATerminal({"macos", source.picture(), source.icons()});
  EXPECT_THAT(shown, StartsWith("\r\x1b[K1/11 Icon-512.png\r\x1b[K2/11 Icon-512@2x.png"));
  EXPECT_TRUE(shown.ends_with("11/11 Contents.json\r\x1b[K")) << shown;
}

TEST(Progress, IsClearedBeforeTheLineOfAFailure) {
  const SourcePicture source;
  std::filesystem::create_directories(source.icons() / "bad.png");
  const std::string shown = shownOnATerminal(
      {"custom", source.picture(), source.icons(), "bad", "10", "10", "good", "10", "10"});
  EXPECT_EQ(shown, "\r\x1b[K1/2 bad.png\r\x1b[K\r\x1b[K2/2 good.png\r\x1b[K");
}

TEST(Progress, CountsEveryRowThatIsAskedFor) {
  const SourcePicture source;
  const std::string shown = shownOnATerminal({"custom", source.picture(), source.icons(), "icon",
                                              "10", "10", "a", "10", "10", "banner", "8", "10"});
  EXPECT_EQ(shown, "\r\x1b[K1/3 icon.png\r\x1b[K");
}

TEST(Progress, LeavesATerminalAloneUntilThereIsSome) {
  const SourcePicture source;
  const std::string shown = shownOnATerminal({"macos", source.root() / "none", source.icons()});
  EXPECT_THAT(shown, HasSubstr("cannot read the picture"));
  EXPECT_THAT(shown, Not(HasSubstr("\x1b")));
}

TEST(Progress, ShowsNoControlCharactersOfAName) {
  const SourcePicture source;
  const std::string shown =
      shownOnATerminal({"custom", source.picture(), source.icons(), "\x1b]0;x\x07", "10", "10"});
  EXPECT_THAT(shown, HasSubstr("1/1 \\x1b]0;x\\x07.png"));
}

}  // namespace tessarine::testing
