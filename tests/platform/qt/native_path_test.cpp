#include "platform/qt/native_path.h"

#include <gtest/gtest.h>

#include <QSysInfo>

namespace tessarine {
namespace {

TEST(NativePath, ReturnsEveryByte) {
  for (const std::string path :
       {"/a b", "/100%", "/a#b?c", "/\xff\xfe", "/\xc3\xa9", "/back\\slash", "/line\nfeed"}) {
    EXPECT_EQ(localPathOf(fileURLOf(path)), path);
  }
}

TEST(NativePath, IsEscapedInItsURL) {
  EXPECT_EQ(fileURLOf("/all the icons/\xc3\xa9").toEncoded(), "file:///all%20the%20icons/%C3%A9");
}

TEST(NativePath, MayNameThisMachine) {
  EXPECT_EQ(localPathOf(QUrl("file://localhost/a")), "/a");
  EXPECT_EQ(localPathOf(QUrl("file://" + QSysInfo::machineHostName() + "/a")), "/a");
}

TEST(NativePath, IsThatOfALocalFileAlone) {
  EXPECT_EQ(localPathOf(QUrl("file://elsewhere/a")), std::nullopt);
  EXPECT_EQ(localPathOf(QUrl("http://example.org/a")), std::nullopt);
  EXPECT_EQ(localPathOf(QUrl("/a")), std::nullopt);
  EXPECT_EQ(localPathOf(QUrl()), std::nullopt);
}

TEST(NativePath, HoldsNoNUL) {
  EXPECT_EQ(localPathOf(QUrl("file:///a.png%00b")), std::nullopt);
  EXPECT_EQ(localPathOf(QUrl("file:///a.png%2500b")), "/a.png%00b");
}

}  // namespace
}  // namespace tessarine
