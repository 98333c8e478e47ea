#pragma once

#include <QDBusMessage>
#include <QObject>

namespace tessarine {

// Whether the desktop asks for dark colours, and each change of it, as its settings portal tells.
// Nothing is told where there is no portal.
class DesktopColorScheme final : public QObject {
  Q_OBJECT

 public:
  // Asks without waiting; the answer comes as a signal.
  explicit DesktopColorScheme(QObject* parent = nullptr);

 signals:
  void told(bool dark);

 private slots:
  void settingChanged(const QDBusMessage& message);

 private:
  void tell(const QVariant& value);
};

}  // namespace tessarine
