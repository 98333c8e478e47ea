#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

#include "tests/headless/program.h"
#include "tests/headless/source_picture.h"
#include "tests/support/under_valgrind.h"

namespace tessarine::testing {

// As by an upgrade while it runs.
TEST(ReplacedProgram, StillReadsPictures) {
  if (underValgrind()) GTEST_SKIP() << "valgrind cannot start a program by its descriptor";
  const SourcePicture source;
  const std::string picture = source.picture(), icons = source.icons();
  const std::filesystem::path copy = source.root() / "tessarine-headless";
  std::filesystem::copy_file(TESSARINE_HEADLESS, copy);
  const Outcome outcome = runProgram({}, [&] {
    const int program = ::open(copy.c_str(), O_PATH | O_CLOEXEC);
    std::filesystem::remove(copy);
    std::array<std::string, 4> words{"tessarine-headless", "macos", picture, icons};
    const std::array<char*, 5> arguments{words[0].data(), words[1].data(), words[2].data(),
                                         words[3].data(), nullptr};
    ::fexecve(program, arguments.data(), environ);
    ::_exit(98);
  });
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(outcome.status, 0);
}

}  // namespace tessarine::testing
