#include "platform/posix/write_whole.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <future>
#include <string>

#include "platform/posix/descriptor.h"

namespace tessarine::testing {

namespace {

class Pipe {
 public:
  Pipe() {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return;
    reading = Descriptor(ends[0]);
    writing = Descriptor(ends[1]);
  }

  // To the end.
  std::string contents() const {
    std::string text;
    std::array<char, 4096> buffer;
    for (ssize_t count = 0; (count = ::read(reading.number(), buffer.data(), buffer.size())) > 0;) {
      text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

  Descriptor reading;
  Descriptor writing;
};

int write(const Descriptor& descriptor, const std::string& text) {
  return writeWhole(descriptor.number(),
                    {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

}  // namespace

TEST(WriteWhole, WaitsForANonBlockingPipe) {
  Pipe pipe;
  ASSERT_EQ(::fcntl(pipe.writing.number(), F_SETFL, O_NONBLOCK), 0);
  // Many times what a pipe holds.
  std::string text;
  for (int line = 0; line < 100'000; ++line) text += std::to_string(line) + "\n";
  auto read = std::async(std::launch::async, [&] { return pipe.contents(); });
  EXPECT_EQ(write(pipe.writing, text), 0);
  pipe.writing.close();
  EXPECT_TRUE(read.get() == text);
}

TEST(WriteWhole, AnswersWithTheError) {
  const Descriptor full(::open("/dev/full", O_WRONLY));
  EXPECT_EQ(write(full, "x"), ENOSPC);
  EXPECT_EQ(write(Descriptor(), "x"), EBADF);
  EXPECT_EQ(write(full, ""), 0);
}

}  // namespace tessarine::testing
