#include "tests/platform/vips/bombs.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>

#include "platform/vips/decoder.h"
#include "tests/platform/vips/bomb_parts.h"
#include "tests/support/memory_limit.h"
#include "tests/support/under_valgrind.h"

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
  const std::clock_t begin = std::clock();
  const Decoded decoded = decode(bomb.bytes);
  const long spent = (std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
  const long grown = (kilobytes("VmHWM:") - before) / 1024;
  std::printf("%-32s %4ld MB %6ld ms of the processor  %s\n", bomb.name.c_str(), grown, spent,
              decoded.picture ? "read" : decoded.refusal.c_str());
  std::fflush(stdout);
  // The address sanitizer and valgrind take memory of their own.
  const bool ofThePicture = testing::memoryCanBeLimited() && !testing::underValgrind();
  if (ofThePicture && grown > allowedMegabytes) ::_exit(tookTooMuchMemory);
  ::_exit(decoded.picture ? read : refused);
}

void expectHarmless(const Bomb& bomb) {
  SCOPED_TRACE(bomb.name);
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) judge(bomb);
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
  if (bomb.mustBeRefused || WEXITSTATUS(status) != read) {
    EXPECT_EQ(WEXITSTATUS(status), refused);
  }
}

// One test for each group, since it takes a while to make the files.
TEST(HostileFiles, OfPixelsAreHarmless) {
  for (const Bomb& bomb : testing::rasterBombs()) expectHarmless(bomb);
}
TEST(HostileFiles, OfTIFFAreHarmless) {
  for (const Bomb& bomb : testing::tiffBombs()) expectHarmless(bomb);
}
TEST(HostileFiles, OfDrawingsAreHarmless) {
  for (const Bomb& bomb : testing::drawingBombs()) expectHarmless(bomb);
}
TEST(HostileFiles, OfContainersAreHarmless) {
  for (const Bomb& bomb : testing::containerBombs()) expectHarmless(bomb);
}

}  // namespace
}  // namespace tessarine
