#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>

// Tests of windows run without a screen, without a bus, and leave no settings behind.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
  ::testing::InitGoogleTest(&argc, argv);
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
