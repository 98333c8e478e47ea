#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QSettings>

#include "app/app_delegate.h"
#include "app/screens.h"
#include "intake/icon_info.h"
#include "platform/isolation/decoding_main.h"
#include "platform/isolation/isolated_pictures.h"
#include "platform/posix/granted_files.h"
#include "platform/posix/granting_panel.h"
#include "platform/posix/process.h"
#include "platform/posix/standard_console.h"
#include "platform/qt/qt_alert.h"
#include "platform/qt/qt_open_panel.h"
#include "platform/qt/qt_workspace.h"
#include "platform/qt/theme.h"

namespace {

// Qt's folder dialog would keep its history and its last folder between runs.
void saveNothing() {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

QIcon programIcon() {
  QIcon icon;
  for (const QString& size : QDir(QStringLiteral(":/icon")).entryList()) {
    icon.addFile(QStringLiteral(":/icon/") + size);
  }
  return icon;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace tessarine;

  setUpProcess();
  decodeIfAsked(argc, argv);
  saveNothing();
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Tessarine"));
  QApplication::setApplicationVersion(QStringLiteral(TESSARINE_VERSION));
  QApplication::setDesktopFileName(
      QString::fromUtf8(bundleIdentifier.data(), static_cast<qsizetype>(bundleIdentifier.size())));
  QApplication::setWindowIcon(programIcon());
  const Theme theme(application);

  AppDelegate delegate;
  QApplication::setQuitOnLastWindowClosed(
      delegate.applicationShouldTerminateAfterLastWindowClosed());
  QObject::connect(&application, &QApplication::aboutToQuit,
                   [&delegate] { delegate.applicationWillTerminate(); });

  IsolatedPictures pictures;
  GrantedFiles files;
  QtOpenPanel qtPanel;
  GrantingPanel panel(qtPanel, files);
  QtWorkspace workspace;
  StandardConsole console;
  QtAlert alert;
  Platform platform{pictures, files, panel, workspace, console, alert};

  Screens screens(platform);
  screens.window().show();
  delegate.applicationDidFinishLaunching();
  return QApplication::exec();
}
