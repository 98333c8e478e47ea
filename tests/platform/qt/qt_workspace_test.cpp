#include "platform/qt/qt_workspace.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDesktopServices>
#include <QProcess>
#include <QTest>

#include "tests/support/opened_urls.h"
#include "tests/support/temporary_folder.h"

namespace tessarine {
namespace {

using testing::OpenedURLs;

constexpr int patience = 30000;  // milliseconds

// A session bus of our own, which the program's connection is made to.
class Bus {
 public:
  Bus() {
    process_.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"});
    EXPECT_TRUE(process_.waitForReadyRead(30000));
    qputenv("DBUS_SESSION_BUS_ADDRESS", process_.readLine().trimmed());
  }
  ~Bus() {
    process_.terminate();
    process_.waitForFinished();
  }

 private:
  QProcess process_;
};

// Records what it is asked for, and answers well or with an error.
class FileManager final : public QDBusVirtualObject {
 public:
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    calls.push_back(message.member().toStdString() + " " +
                    message.arguments().value(0).toStringList().join(' ').toStdString() + " '" +
                    message.arguments().value(1).toString().toStdString() + "'");
    return connection.send(fails ? message.createErrorReply(QDBusError::Failed, "no")
                                 : message.createReply());
  }

  bool fails = false;
  std::vector<std::string> calls;
};

class WorkspaceTest : public ::testing::Test {
 protected:
  void SetUp() override {
    auto bus = QDBusConnection::sessionBus();
    ASSERT_TRUE(bus.isConnected());
    ASSERT_TRUE(bus.registerVirtualObject("/org/freedesktop/FileManager1", &manager_));
  }
  void TearDown() override {
    auto bus = QDBusConnection::sessionBus();
    bus.unregisterObject("/org/freedesktop/FileManager1");
    bus.unregisterService("org.freedesktop.FileManager1");
  }
  static void SetUpTestSuite() { bus_ = std::make_unique<Bus>(); }
  static void TearDownTestSuite() { bus_.reset(); }
  static void offerService() {
    ASSERT_TRUE(QDBusConnection::sessionBus().registerService("org.freedesktop.FileManager1"));
  }

  static inline std::unique_ptr<Bus> bus_;
  FileManager manager_;
  OpenedURLs opened_;
};

TEST_F(WorkspaceTest, AsksTheFileManagerForAWindowOnTheFolder) {
  offerService();
  QtWorkspace().showFolder("/all the icons/\xc3\xa9");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !manager_.calls.empty(); }, patience));
  EXPECT_EQ(manager_.calls,
            std::vector<std::string>{"ShowFolders file:///all%20the%20icons/%C3%A9 ''"});
  EXPECT_TRUE(opened_.urls.isEmpty());
}

TEST_F(WorkspaceTest, PassesTheEmptyPathOver) {
  offerService();
  QtWorkspace().showFolder("");
  QtWorkspace().showFolder("/next");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !manager_.calls.empty(); }, patience));
  EXPECT_EQ(manager_.calls, std::vector<std::string>{"ShowFolders file:///next ''"});
}

TEST_F(WorkspaceTest, OpensTheFolderOtherwiseWhereTheFileManagerFails) {
  manager_.fails = true;
  offerService();
  QtWorkspace().showFolder("/icons");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !opened_.urls.isEmpty(); }, patience));
  EXPECT_EQ(opened_.urls, QList<QUrl>{QUrl("file:///icons")});
}

TEST_F(WorkspaceTest, OpensTheFolderOtherwiseWhereThereIsNoFileManager) {
  QtWorkspace().showFolder("/icons");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !opened_.urls.isEmpty(); }, patience));
  EXPECT_EQ(opened_.urls, QList<QUrl>{QUrl("file:///icons")});
}

TEST_F(WorkspaceTest, KeepsStandardOutputFromTheHelperThatOpens) {
  struct stat before {};
  struct stat after {};
  ::fstat(STDOUT_FILENO, &before);
  QtWorkspace().showFolder("/icons");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !opened_.urls.isEmpty(); }, patience));
  EXPECT_TRUE(opened_.outputWentNowhere);
  ::fstat(STDOUT_FILENO, &after);
  EXPECT_EQ(before.st_ino, after.st_ino);
}

}  // namespace
}  // namespace tessarine
