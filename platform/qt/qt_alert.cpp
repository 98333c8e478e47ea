#include "platform/qt/qt_alert.h"

#include <QApplication>
#include <QMessageBox>

namespace tessarine {

void QtAlert::runWarning(const std::string& message, const std::string& button) {
  QMessageBox alert(QApplication::activeWindow());
  alert.setIcon(QMessageBox::Warning);
  alert.setTextFormat(Qt::PlainText);
  alert.setText(QString::fromStdString(message));
  alert.addButton(QString::fromStdString(button), QMessageBox::AcceptRole);
  alert.exec();
}

}  // namespace tessarine
