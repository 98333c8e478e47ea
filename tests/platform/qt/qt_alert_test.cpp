#include "platform/qt/qt_alert.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace tessarine {
namespace {

TEST(Alert, WarnsWithOneButton) {
  bool seen = false;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    poll.stop();
    seen = true;
    EXPECT_EQ(box->text(), "Type <b>in</b> \"1024\" & try");
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    EXPECT_EQ(box->informativeText(), "");
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    EXPECT_EQ(box->windowModality(), Qt::ApplicationModal);
    ASSERT_EQ(box->buttons().size(), 1);
    EXPECT_EQ(box->buttons().first()->text(), "OK");
    box->buttons().first()->click();
  });
  poll.start(5);
  QtAlert().runWarning("Type <b>in</b> \"1024\" & try", "OK");
  EXPECT_TRUE(seen);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace tessarine
