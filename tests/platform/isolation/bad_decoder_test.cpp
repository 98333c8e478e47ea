#include <gmock/gmock.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "platform/isolation/decoding_process.h"
#include "platform/isolation/isolated_pictures.h"
#include "tests/platform/isolation/watched_decoder.h"
#include "tests/support/in_child.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/under_valgrind.h"

namespace tessarine::testing {

using ::testing::AnyOf;
using ::testing::SizeIs;

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// A decoding process that does as the picture says.
class BadDecoder : public ::testing::Test {
 protected:
  Decoded told(const std::string& order, std::chrono::milliseconds patience = 60s) const {
    const fs::path picture = root / "picture.gif";
    writeFile(picture, "GIF89a" + order);
    return IsolatedPictures(BAD_DECODER, patience).read(picture);
  }
  std::string refusal(const std::string& order) const {
    const Decoded decoded = told(order);
    return decoded.picture ? "(read)" : decoded.refusal;
  }

  TemporaryFolder folder;
  const fs::path root = folder.path();
};

}  // namespace

TEST_F(BadDecoder, ThatCrashesCostsThePicture) {
  EXPECT_EQ(refusal("crash"), decoderCrashed);
}

TEST_F(BadDecoder, ThatNeverEndsIsStopped) {
  const Decoded decoded = told("hang", 200ms);
  EXPECT_FALSE(decoded.picture);
  EXPECT_EQ(decoded.refusal, decoderTookTooLong);
}

TEST_F(BadDecoder, ThatLeavesItsGroupIsStopped) {
  EXPECT_EQ(inChild([&] {
              // Without which a test that fails would wait for the decoder's own end.
              ::alarm(30);
              return told("leave-group", 200ms).refusal;
            }),
            decoderTookTooLong);
}

TEST_F(BadDecoder, ThatSaysTooLittleCostsThePicture) {
  EXPECT_EQ(refusal("say-nothing"), decoderCrashed);
  EXPECT_EQ(refusal("stop-early"), decoderCrashed);
  EXPECT_EQ(refusal("stop-short"), decoderCrashed);
  EXPECT_EQ(refusal("refuse "), decoderCrashed);
  EXPECT_EQ(refusal("overstate"), decoderCrashed);
}

TEST_F(BadDecoder, ThatSaysTooMuchIsNotHeard) {
  EXPECT_THAT(refusal("refuse-at-length"), SizeIs(200));
  const Decoded decoded = told("exceed");
  ASSERT_TRUE(decoded.picture);
  EXPECT_EQ(decoded.picture->points, (PixelSize{1, 1}));
  EXPECT_THAT(decoded.picture->bitmap->pixels(), ::testing::ElementsAre(127, 127, 127, 127));
}

TEST_F(BadDecoder, GivesItsReasonOnOneLine) {
  EXPECT_EQ(refusal("refuse a\nb\x1b"), "a\\nb\\x1b");
}

TEST_F(BadDecoder, IsGivenNoFilesAndNoSecrets) {
  EXPECT_EQ(inChild([&] {
              ::clearenv();
              ::setenv("SECRET", "x", 1);
              ::setenv("LD_PRELOAD", "x", 1);
              ::setenv("LANG", "C", 1);
              return refusal("inherit");
            }),
            "3 files, LANG=C");
}

TEST_F(BadDecoder, CannotTakeAllMemory) {
  // A sanitizer ends the program where memory is refused.
  EXPECT_THAT(refusal("grow"), AnyOf("memory refused", decoderCrashed));
}

TEST_F(BadDecoder, CannotWrite) {
  if (!kernelConfines()) GTEST_SKIP() << "the kernel cannot confine";
  EXPECT_EQ(refusal("write " + (root / "new").string()), "Permission denied");
  EXPECT_FALSE(fs::exists(root / "new"));
}

TEST_F(BadDecoder, CannotWriteToThePicture) {
  EXPECT_TRUE(told("write-picture").picture);
  const std::string order = "GIF89awrite-picture";
  const ByteBuffer dragged({reinterpret_cast<const std::uint8_t*>(order.data()), order.size()},
                           nullptr);
  EXPECT_TRUE(IsolatedPictures(BAD_DECODER, 60s).decode(dragged));
}

TEST_F(BadDecoder, ReadsFontsAndNothingElseOfTheUser) {
  if (!kernelConfines()) GTEST_SKIP() << "the kernel cannot confine";
  fs::create_directories(root / ".local/share/fonts");
  writeFile(root / ".local/share/fonts/font", "font");
  writeFile(root / "secret", "secret");
  const auto atHome = [&](const std::string& path) {
    return inChild([&] {
      ::setenv("HOME", root.c_str(), 1);
      return refusal("read " + path);
    });
  };
  EXPECT_EQ(atHome(root / ".local/share/fonts/font"), "opened");
  EXPECT_EQ(atHome(root / "secret"), "Permission denied");
  EXPECT_EQ(atHome(root / "picture.gif"), "Permission denied");
  EXPECT_EQ(atHome("/etc/passwd"), "Permission denied");
}

TEST_F(BadDecoder, LeavesNoProcessAndNoFileOpen) {
  const auto openFiles = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
  const auto before = openFiles();
  for (int i = 0; i < 50; ++i) {
    told("crash");
    told("exceed");
  }
  EXPECT_EQ(openFiles(), before);
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

TEST_F(BadDecoder, DiesWithItsParent) {
  // Whose orphans become ours.
  ::prctl(PR_SET_CHILD_SUBREAPER, 1);
  const pid_t parent = ::fork();
  ASSERT_GE(parent, 0);
  if (parent == 0) {
    told("hang");
    ::_exit(0);
  }
  while (!isConfined(decoderOf(parent))) std::this_thread::sleep_for(1ms);
  const pid_t decoder = decoderOf(parent);
  ::kill(parent, SIGKILL);
  ::waitpid(parent, nullptr, 0);
  int status = 0;
  EXPECT_EQ(::waitpid(decoder, &status, 0), decoder);
  EXPECT_EQ(status, SIGKILL);
}

TEST_F(BadDecoder, ThatIsMissingCostsThePicture) {
  writeFile(root / "picture.gif", "GIF89a");
  const Decoded decoded = IsolatedPictures(root / "missing").read(root / "picture.gif");
  EXPECT_FALSE(decoded.picture);
  // Valgrind finds a program missing only after the start.
  EXPECT_EQ(decoded.refusal, underValgrind()
                                 ? decoderCrashed
                                 : "its decoder cannot be started: No such file or directory");
}

}  // namespace tessarine::testing
