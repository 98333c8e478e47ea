#include "platform/qt/desktop_color_scheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace tessarine {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

}  // namespace

DesktopColorScheme::DesktopColorScheme(QObject* parent) : QObject(parent) {
  auto bus = QDBusConnection::sessionBus();
  bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
              SLOT(settingChanged(QString, QString, QDBusVariant)));
  auto call = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
  call << appearance << colorScheme;
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    if (!watcher->isError()) tell(watcher->reply().arguments().value(0));
    watcher->deleteLater();
  });
}

void DesktopColorScheme::settingChanged(const QString& space, const QString& key,
                                        const QDBusVariant& value) {
  if (space == appearance && key == colorScheme) tell(value.variant());
}

void DesktopColorScheme::tell(const QVariant& value) {
  QVariant plain = value;
  while (plain.canConvert<QDBusVariant>()) plain = plain.value<QDBusVariant>().variant();
  const uint scheme = plain.toUInt();
  if (scheme == prefersDark || scheme == prefersLight) emit told(scheme == prefersDark);
}

}  // namespace tessarine
