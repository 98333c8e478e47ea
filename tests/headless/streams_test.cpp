#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

#include "tests/headless/program.h"
#include "tests/headless/source_picture.h"

// Standard streams that take nothing, and limits whose signals end other programs.
namespace tessarine::testing {

using ::testing::Each;
using ::testing::EndsWith;
using ::testing::IsEmpty;

namespace {

namespace fs = std::filesystem;

void closeAll() {
  for (int stream = 0; stream <= STDERR_FILENO; ++stream) ::close(stream);
}

void fillOutput() {
  ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO);
}

void breakOutput() {
  int ends[2];
  if (::pipe(ends) != 0) ::_exit(98);
  ::close(ends[0]);
  ::dup2(ends[1], STDOUT_FILENO);
  ::close(ends[1]);
}

struct Streams {
  const char* label;
  void (*prepare)();
};

class UselessStreams : public ::testing::TestWithParam<Streams> {};

}  // namespace

TEST_P(UselessStreams, CostNoFile) {
  const SourcePicture source;
  // Two files cannot be written, so that there is something to print.
  fs::create_directories(source.icons() / "Icon-512.png");
  fs::create_directories(source.icons() / "Icon-16.png");
  const Outcome outcome =
      runProgram({"macos", source.picture(), source.icons()}, GetParam().prepare);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(namesIn(source.icons()).size(), 11U);
  for (const std::string& name : namesIn(source.icons())) {
    if (fs::is_directory(source.icons() / name) || name == "Contents.json") continue;
    EXPECT_GT(readPNG(source.icons() / name).width, 0) << name;
  }
  EXPECT_TRUE(contentsOf(source.icons() / "Contents.json").ends_with("}"));
}

INSTANTIATE_TEST_SUITE_P(Kinds, UselessStreams,
                         ::testing::Values(Streams{"allClosed", closeAll},
                                           Streams{"outputClosed", [] { ::close(STDOUT_FILENO); }},
                                           Streams{"errorClosed", [] { ::close(STDERR_FILENO); }},
                                           Streams{"outputFull", fillOutput},
                                           Streams{"outputBroken", breakOutput}),
                         [](const auto& row) { return row.param.label; });

TEST(FileSizeLimit, LosesOnlyTheFilesAboveIt) {
  const SourcePicture source;
  const Outcome outcome = runProgram({"macos", source.picture(), source.icons()}, [] {
    const rlimit limit{20'000, 20'000};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  });
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.error, IsEmpty());
  const auto lines = linesOf(outcome.output);
  EXPECT_THAT(lines, Each(EndsWith("File too large")));
  EXPECT_FALSE(lines.empty());
  EXPECT_EQ(namesIn(source.icons()).size(), 11U);
  for (const std::string& name : namesIn(source.icons())) {
    const bool told = outcome.output.find("/" + name + "\"") != std::string::npos;
    if (told || name == "Contents.json") continue;
    EXPECT_GT(readPNG(source.icons() / name).width, 0) << name;
  }
}

}  // namespace tessarine::testing
