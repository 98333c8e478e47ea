#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "platform/vips/decoder.h"
#include "platform/vips/held_tiff.h"
#include "platform/vips/vips_pictures.h"
#include "tests/platform/vips/drawn_pictures.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

class BadInput : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  std::string fileHolding(const std::string& name, const std::string& contents) const {
    std::ofstream(path(name), std::ios::binary) << contents;
    return path(name);
  }

 private:
  fs::path folder_ = fs::path(::testing::TempDir()) / ("bad_input_" + std::to_string(::getpid()));
};

void expectRefusal(const std::string& path, const std::string& reason) {
  const Decoded decoded = decodePictureFile(path);
  EXPECT_FALSE(decoded.picture);
  EXPECT_EQ(decoded.refusal, reason);
}

TEST_F(BadInput, MissingFile) {
  expectRefusal(path("none.png"), "No such file or directory");
}

TEST_F(BadInput, EmptyPath) {
  expectRefusal("", "No such file or directory");
}

TEST_F(BadInput, PathThatGoesOnBehindANullByte) {
  fileHolding("text", "text");
  expectRefusal(path("text") + std::string("\0.png", 5), "No such file or directory");
}

TEST_F(BadInput, FileWhoseReadingFails) {
  const RegularFile file(::open(fileHolding("a.png", "text").c_str(), O_WRONLY));
  ASSERT_EQ(file.refusal(), "");
  EXPECT_FALSE(file.bytes());
}

TEST_F(BadInput, EmptyFile) {
  expectRefusal(fileHolding("a.png", ""), "the file is empty");
}

TEST_F(BadInput, Folder) {
  expectRefusal(path(""), "Is a directory");
}

TEST_F(BadInput, PipeThatNobodyWritesTo) {
  ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
  expectRefusal(path("pipe"), "not a regular file");
}

TEST_F(BadInput, EndlessDevice) {
  expectRefusal("/dev/zero", "not a regular file");
}

TEST_F(BadInput, Socket) {
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  // Short enough for the address, wherever the folder of the tests lies.
  const std::string name = "/tmp/socket_" + std::to_string(::getpid());
  name.copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  expectRefusal(name, "not a regular file");
  ::unlink(name.c_str());
  ::close(socket);
}

TEST_F(BadInput, DanglingLink) {
  fs::create_symlink(path("none"), path("link.png"));
  expectRefusal(path("link.png"), "No such file or directory");
}

TEST_F(BadInput, LinkToItself) {
  fs::create_symlink(path("link.png"), path("link.png"));
  expectRefusal(path("link.png"), "Too many levels of symbolic links");
}

TEST_F(BadInput, Text) {
  expectRefusal(fileHolding("a.png", "no picture\n"), "not a picture of a kind that can be read");
}

TEST_F(BadInput, FileBeyondTheLimit) {
  const auto file = fileHolding("huge.png", "\x89PNG\r\n\x1a\n");
  fs::resize_file(file, (std::uintmax_t{1} << 30) + 1);
  expectRefusal(file, "the file is larger than 1 GiB");
}

TEST_F(BadInput, NothingButAMark) {
  expectRefusal(fileHolding("a.png", "\x89PNG\r\n\x1a\n"), "damaged PNG picture");
}

TEST_F(BadInput, RandomBytes) {
  std::mt19937 random(1);
  for (int round = 0; round < 50; ++round) {
    std::string bytes(1000, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    EXPECT_FALSE(decodePictureFile(fileHolding("a.png", bytes)).picture);
  }
}

TEST_F(BadInput, GivesNothingThroughThePort) {
  VipsPictures pictures;
  EXPECT_FALSE(pictures.decodeFile(path("none.png")));
  EXPECT_FALSE(pictures.decode(required(ByteBuffer::copyOf({}))));
}

TEST_F(BadInput, LeavesStandardErrorEmpty) {
  ::testing::internal::CaptureStderr();
  decodePictureFile(fileHolding("a.png", "\x89PNG\r\n\x1a\n"));
  decodePictureFile(fileHolding("a.svg", "<svg><nonsense"));
  decodePictureFile(
      fileHolding("b.svg",
                  "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\">"
                  "<text font-size=\"300000\">a</text></svg>"));
  decodePictureFile(fileHolding("a.pdf", "%PDF-1.4 nonsense"));
  decodePictureFile(fileHolding("a.tif", std::string("II*\0\x08\0\0\0\x01", 9)));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

// Names reach the file system as they are.
TEST_F(BadInput, StrangeNamesAreFound) {
  const auto held = required(writeHeldTIFF(testing::drawVaried({3, 2})));
  const std::string contents(held.bytes().begin(), held.bytes().end());
  for (const auto* name : {"two\nlines.tiff", "bl ank", "-v", "[0]", "a.png[page=1]", "\xff\xfe",
                           "gr\xc3\xbc\xc3\x9f"
                           "e.tif",
                           "%d", "'\""}) {
    const auto picture = decodePictureFile(fileHolding(name, contents)).picture;
    ASSERT_TRUE(picture) << name;
    EXPECT_EQ(picture->points, (PixelSize{3, 2}));
  }
}

}  // namespace
}  // namespace tessarine
