#include "tests/platform/vips/bombs.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "platform/vips/decoder.h"
#include "tests/platform/vips/bomb_parts.h"

namespace tessarine {
namespace {

using testing::Bomb;

constexpr long allowedMegabytes = 64;

long kilobytes(const std::string& field) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(field)) return std::atol(line.c_str() + field.size());
  }
  return 0;
}

Decoded decode(const std::string& bytes) {
  const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
  return decodePicture(ByteBuffer({first, bytes.size()}, nullptr));
}

enum Verdict { refused = 10, read, tookTooMuchMemory };

// In a process of its own, whose peak of memory nobody else has moved.
[[noreturn]] void judge(const Bomb& bomb) {
  // What the libraries load once is not the picture's doing.
  for (const auto* name : {"rgb.png", "rgb.bmp", "p3.jpg", "rgb.heic", "rgba.avif", "drawing.svg",
                           "drawing.pdf", "rgba.jxl"}) {
    decode(testing::sample(name));
  }
  std::ofstream("/proc/self/clear_refs") << 5;  // the peak starts anew
  const long before = kilobytes("VmHWM:");
  const Decoded decoded = decode(bomb.bytes);
  const long grown = (kilobytes("VmHWM:") - before) / 1024;
  std::printf("%-32s %4ld MB  %s\n", bomb.name.c_str(), grown,
              decoded.picture ? "read" : decoded.refusal.c_str());
  std::fflush(stdout);
  if (grown > allowedMegabytes) ::_exit(tookTooMuchMemory);
  ::_exit(decoded.picture ? read : refused);
}

class HostileFile : public ::testing::TestWithParam<Bomb> {};

TEST_P(HostileFile, IsHarmless) {
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) judge(GetParam());
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
  if (GetParam().mustBeRefused || WEXITSTATUS(status) != read) {
    EXPECT_EQ(WEXITSTATUS(status), refused);
  }
}

std::string nameOf(const ::testing::TestParamInfo<Bomb>& row) {
  return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(Raster, HostileFile, ::testing::ValuesIn(testing::rasterBombs()), nameOf);
INSTANTIATE_TEST_SUITE_P(TIFF, HostileFile, ::testing::ValuesIn(testing::tiffBombs()), nameOf);
INSTANTIATE_TEST_SUITE_P(Drawing, HostileFile, ::testing::ValuesIn(testing::drawingBombs()),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Container, HostileFile, ::testing::ValuesIn(testing::containerBombs()),
                         nameOf);

}  // namespace
}  // namespace tessarine
