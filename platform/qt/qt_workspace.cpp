#include "platform/qt/qt_workspace.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QStringList>
#include <QUrl>
#include <cstdio>

#include "platform/qt/native_path.h"

namespace tessarine {

namespace {

// Standard output leads nowhere for as long as this lives, so that a program started meanwhile
// neither writes among our lines nor keeps a reader of them waiting for their end. Where no file
// can be opened, it stays as it is.
class SilentStandardOutput {
 public:
  SilentStandardOutput() : kept_(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0)) {
    if (kept_ < 0) return;
    std::fflush(stdout);
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ::dup2(nowhere, STDOUT_FILENO);
    ::close(nowhere);
  }
  ~SilentStandardOutput() {
    if (kept_ < 0) return;
    ::dup2(kept_, STDOUT_FILENO);
    ::close(kept_);
  }
  SilentStandardOutput(const SilentStandardOutput&) = delete;
  SilentStandardOutput& operator=(const SilentStandardOutput&) = delete;

 private:
  int kept_;
};

void openFolder(const QUrl& folder) {
  const SilentStandardOutput silence;
  QDesktopServices::openUrl(folder);
}

}  // namespace

void QtWorkspace::showFolder(const std::string& rootPath) {
  if (rootPath.empty()) return;
  const QUrl folder = fileURLOf(rootPath);
  auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
                                             QStringLiteral("/org/freedesktop/FileManager1"),
                                             QStringLiteral("org.freedesktop.FileManager1"),
                                             QStringLiteral("ShowFolders"));
  call << QStringList{QString::fromLatin1(folder.toEncoded())} << QString();
  const QDBusPendingCall pending = QDBusConnection::sessionBus().asyncCall(call);
  // Without a bus the call has failed already, which no watcher would tell.
  if (pending.isError()) return openFolder(folder);
  auto* watcher = new QDBusPendingCallWatcher(pending);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, folder] {
    if (watcher->isError()) openFolder(folder);
    watcher->deleteLater();
  });
}

}  // namespace tessarine
