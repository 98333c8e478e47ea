#include <gmock/gmock.h>
#include <stdlib.h>
#include <sys/stat.h>

#include "platform/posix/confinement.h"
#include "tests/headless/program.h"
#include "tests/headless/source_picture.h"
#include "tests/support/in_child.h"
#include "tests/support/kernel.h"

namespace tessarine::testing {

using ::testing::ElementsAre;

namespace {

namespace fs = std::filesystem;

bool kernelConfines() {
  return inChild([] { return confine({}) ? "yes" : "no"; }) == "yes";
}

}  // namespace

TEST(ConfinedRun, RefusesWhatTheProgramDoesNotNeed) {
  if (!kernelConfines()) GTEST_SKIP() << "the kernel cannot confine";
  const SourcePicture source;
  const Outcome outcome = runProgram({"macos", source.picture(), source.icons()}, [&] {
    ::setenv("LD_PRELOAD", CONFINEMENT_PROBE, 1);
    ::setenv("PROBE_FILE", (source.root() / "probe").c_str(), 1);
    ::setenv("ASAN_OPTIONS", "verify_asan_link_order=0", 1);
  });
  EXPECT_EQ(outcome.status, 0);
  // Older kernels cannot take TCP away.
  const char* const bind = landlockVersion() < 4 ? "bind: allowed" : "bind: Permission denied";
  EXPECT_THAT(linesOf(outcome.error),
              ElementsAre("read: Permission denied", "write: Permission denied", bind));
  EXPECT_FALSE(fs::exists(source.root() / "probe"));
}

TEST(ConfinedRun, ReadsAPictureThatIsALink) {
  const SourcePicture source;
  fs::create_symlink("picture.png", source.root() / "link.png");
  EXPECT_EQ(runProgram({"macos", source.root() / "link.png", source.icons()}).status, 0);
}

TEST(ConfinedRun, ReadsAPictureThatItsOwnFilesReplace) {
  const SourcePicture source;
  fs::create_directory(source.icons());
  const std::string picture = source.icons() / "Icon-512.png";
  fs::rename(source.picture(), picture);
  EXPECT_EQ(runProgram({"macos", picture, source.icons()}).status, 0);
  EXPECT_EQ(sizeOfPNG(picture), "512x512");
}

TEST(ConfinedRun, MakesNoFolderForAPictureThatIsRefused) {
  const SourcePicture source;
  fs::create_directory(source.root() / "kept");
  writeFile(source.picture(), "no picture");
  const std::string before = snapshot(source.root() / "kept");
  EXPECT_EQ(runProgram({"ios", source.picture(), source.root() / "kept/a/b/c"}).status, 2);
  EXPECT_EQ(snapshot(source.root() / "kept"), before);
  EXPECT_EQ(runProgram({"ios", source.picture(), source.root() / "kept"}).status, 2);
  EXPECT_TRUE(fs::exists(source.root() / "kept"));
}

TEST(ConfinedRun, ReadsADrawingWithText) {
  const SourcePicture source;
  writeFile(source.picture(),
            "<svg xmlns='http://www.w3.org/2000/svg' width='64' height='64'>"
            "<text x='2' y='60' font-size='64' font-family='sans-serif'>M</text></svg>");
  EXPECT_EQ(runProgram({"custom", source.picture(), source.icons(), "text", "64", "64"}).status, 0);
  int inked = 0;
  for (const Pixel& pixel : readPNG(source.icons() / "text.png").pixels) inked += pixel[3] > 0;
  EXPECT_GT(inked, 0);
}

}  // namespace tessarine::testing
