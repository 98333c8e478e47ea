#include "platform/qt/desktop_color_scheme.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

namespace tessarine {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

// Any other value asks for light colours or for nothing.
constexpr uint prefersDark = 1;

}  // namespace

DesktopColorScheme::DesktopColorScheme(QObject* parent) : QObject(parent) {
  auto bus = QDBusConnection::sessionBus();
  bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
              SLOT(settingChanged(QDBusMessage)));
  auto call = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
  call << appearance << colorScheme;
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    if (!watcher->isError()) tell(watcher->reply().arguments().value(0));
    watcher->deleteLater();
  });
}

void DesktopColorScheme::settingChanged(const QDBusMessage& message) {
  const QVariantList arguments = message.arguments();
  if (arguments.value(0) == appearance && arguments.value(1) == colorScheme) {
    tell(arguments.value(2));
  }
}

void DesktopColorScheme::tell(const QVariant& value) {
  QVariant plain = value;
  while (plain.canConvert<QDBusVariant>()) plain = plain.value<QDBusVariant>().variant();
  emit told(plain.toUInt() == prefersDark);
}

}  // namespace tessarine
