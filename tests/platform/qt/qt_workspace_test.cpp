#include "platform/qt/qt_workspace.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDesktopServices>
#include <QProcess>
#include <QTest>
#include <cstdlib>

#include "tests/support/memory_limit.h"
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

// Which file is standard output; 0 when none is.
ino_t standardOutput() {
  struct stat status {};
  return ::fstat(STDOUT_FILENO, &status) == 0 ? status.st_ino : 0;
}

TEST_F(WorkspaceTest, KeepsStandardOutputFromTheHelperThatOpens) {
  const ino_t before = standardOutput();
  QtWorkspace().showFolder("/icons");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !opened_.urls.isEmpty(); }, patience));
  EXPECT_TRUE(opened_.outputWentNowhere);
  EXPECT_EQ(standardOutput(), before);
}

TEST_F(WorkspaceTest, LeavesStandardOutputAloneWhereNoFileCanBeOpened) {
  if (!testing::memoryCanBeLimited()) GTEST_SKIP() << "the sanitizers open files of their own";
  const ino_t before = standardOutput();
  rlimit limit{};
  ::getrlimit(RLIMIT_NOFILE, &limit);
  const int next = ::dup(STDOUT_FILENO);
  ::close(next);
  const rlimit noMore{static_cast<rlim_t>(next), limit.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &noMore), 0);
  QtWorkspace().showFolder("/icons");
  const bool opened = QTest::qWaitFor([&] { return !opened_.urls.isEmpty(); }, patience);
  ::setrlimit(RLIMIT_NOFILE, &limit);
  EXPECT_TRUE(opened);
  EXPECT_EQ(standardOutput(), before);
}

// In a process of its own, whose connection no other test has made to a bus.
TEST(WorkspaceWithoutABus, OpensTheFolderOtherwise) {
  const auto openedURLs = [] {
    const OpenedURLs opened;
    QtWorkspace().showFolder("/icons");
    return opened.urls;
  };
  EXPECT_EXIT(std::exit(openedURLs() == QList<QUrl>{QUrl("file:///icons")} ? 0 : 1),
              ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace tessarine
