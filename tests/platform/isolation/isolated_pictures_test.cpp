#include "platform/isolation/isolated_pictures.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <thread>

#include "platform/isolation/decoding_main.h"
#include "platform/isolation/decoding_process.h"
#include "platform/vips/vips_pictures.h"
#include "tests/platform/isolation/watched_decoder.h"
#include "tests/support/in_child.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/under_valgrind.h"

namespace tessarine::testing {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

const fs::path samples = fs::path(TESSARINE_SOURCE_DIR) / "tests/platform/vips/samples";

ByteBuffer bytesOf(const std::string& text) {
  return ByteBuffer::copyOf({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()})
      .value();
}

void expectSame(const std::optional<Picture>& picture, const std::optional<Picture>& expected) {
  ASSERT_TRUE(picture && expected);
  EXPECT_EQ(picture->points, expected->points);
  EXPECT_EQ(picture->bitmap->size(), expected->bitmap->size());
  EXPECT_TRUE(std::ranges::equal(picture->bitmap->pixels(), expected->bitmap->pixels()));
}

// A page whose forms draw each other, twice each: 2 to the power of 60 of them.
std::string endlessPDF() {
  std::string pdf =
      "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
      "2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
      "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 9 9]/Contents 4 0 R"
      "/Resources<</XObject<</F 5 0 R>>>>>>endobj\n"
      "4 0 obj<</Length 5>>stream\n/F Do\nendstream endobj\n";
  for (int form = 5; form < 65; ++form) {
    pdf += std::to_string(form) +
           " 0 obj<</Type/XObject/Subtype/Form/BBox[0 0 9 9]/Resources<</XObject<</F " +
           std::to_string(form + 1) + " 0 R>>>>/Length 11>>stream\n/F Do /F Do\nendstream endobj\n";
  }
  return pdf + "trailer<</Root 1 0 R>>\n%%EOF\n";
}

class IsolatedPicturesTest : public ::testing::Test {
 protected:
  IsolatedPictures pictures{TESSARINE_HEADLESS};
};

}  // namespace

TEST_F(IsolatedPicturesTest, AreReadWhileSignalsArrive) {
  if (testing::underValgrind()) GTEST_SKIP() << "valgrind is slower than the signals";
  EXPECT_EQ(inChild([&] {
              struct sigaction action {};
              action.sa_handler = [](int) {};
              ::sigaction(SIGALRM, &action, nullptr);
              const itimerval often{{0, 10000}, {0, 10000}};
              ::setitimer(ITIMER_REAL, &often, nullptr);
              const auto picture = pictures.decodeFile(samples / "drawing.svg");
              return std::string(picture && picture->bitmap ? "read" : "refused");
            }),
            "read");
}

TEST_F(IsolatedPicturesTest, AreThoseOfTheDecoderItself) {
  VipsPictures vips;
  for (const char* name : {"rgba.png", "orientation6.jpg", "cmyk_profile.jpg", "drawing.svg",
                           "drawing.pdf", "rgba.psd", "rgb.heic", "rgba.jxl", "runs.icns"}) {
    SCOPED_TRACE(name);
    const auto expected = vips.decodeFile(samples / name);
    expectSame(pictures.decodeFile(samples / name), expected);
    expectSame(pictures.decode(bytesOf(contentsOf(samples / name))), expected);
  }
}

TEST_F(IsolatedPicturesTest, HoldNothingThatALibraryPrints) {
  // Of this one libvips tells its progress.
  const fs::path picture = samples / "lossless.webp";
  expectSame(IsolatedPictures(TALKATIVE_DECODER).decodeFile(picture),
             VipsPictures().decodeFile(picture));
}

TEST_F(IsolatedPicturesTest, AreRefusedForTheDecodersReason) {
  const TemporaryFolder folder;
  writeFile(folder.path() / "short.png", contentsOf(samples / "rgba.png").substr(0, 60));
  EXPECT_EQ(pictures.read(folder.path() / "short.png").refusal,
            decodePictureFile(folder.path() / "short.png").refusal);
  EXPECT_EQ(pictures.read(folder.path()).refusal, "Is a directory");
}

TEST_F(IsolatedPicturesTest, ThatTakeForEverAreRefused) {
  const TemporaryFolder folder;
  writeFile(folder.path() / "endless.pdf", endlessPDF());
  EXPECT_EQ(IsolatedPictures(TESSARINE_HEADLESS, 2s).read(folder.path() / "endless.pdf").refusal,
            decoderTookTooLong);
}

TEST_F(IsolatedPicturesTest, AreDecodedInConfinement) {
  const TemporaryFolder folder;
  writeFile(folder.path() / "endless.pdf", endlessPDF());
  const pid_t parent = ::fork();
  ASSERT_GE(parent, 0);
  if (parent == 0) {
    pictures.read(folder.path() / "endless.pdf");
    ::_exit(0);
  }
  bool confined = false;
  while (!confined && ::waitpid(parent, nullptr, WNOHANG) == 0) {
    std::this_thread::sleep_for(1ms);
    confined = isConfined(decoderOf(parent));
  }
  EXPECT_TRUE(confined);
  ::kill(parent, SIGKILL);
  ::waitpid(parent, nullptr, 0);
}

TEST(Decoder, EndsAtOnceWhereNobodyWaits) {
  const pid_t decoder = ::fork();
  ASSERT_GE(decoder, 0);
  if (decoder == 0) {
    std::array<int, 2> answer{};
    const int picture = ::open((samples / "rgba.png").c_str(), O_RDONLY);
    const bool arranged = ::pipe(answer.data()) == 0 && ::dup2(picture, STDIN_FILENO) >= 0 &&
                          ::dup2(answer[1], STDOUT_FILENO) >= 0 && ::close(answer[1]) == 0 &&
                          ::close(answer[0]) == 0;
    if (arranged) ::execl(TESSARINE_HEADLESS, TESSARINE_HEADLESS, decodingArgument, nullptr);
    ::_exit(99);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(decoder, &status, 0), decoder);
  EXPECT_EQ(WEXITSTATUS(status), EXIT_FAILURE);
}

TEST(IsolatedPictures, NeedNoProcessForWhatIsNotForeign) {
  IsolatedPictures pictures("/missing");
  VipsPictures vips;
  const auto picture = vips.decodeFile(samples / "rgba.png");
  const auto held = pictures.tiffRepresentation(picture.value());
  expectSame(pictures.decode(held.value()), picture);
}

TEST(IsolatedPictures, NeedNoProcessForWhatIsNoPicture) {
  IsolatedPictures pictures("/missing");
  EXPECT_EQ(pictures.read(TESSARINE_SOURCE_DIR "/CMakeLists.txt").refusal,
            "not a picture of a kind that can be read");
  EXPECT_FALSE(pictures.decode(bytesOf("text")));
  EXPECT_FALSE(pictures.decode(bytesOf("")));
}

}  // namespace tessarine::testing
