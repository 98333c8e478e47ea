#include "platform/qt/native_path.h"

#include <QByteArray>
#include <QSysInfo>

namespace tessarine {

namespace {

// Some file managers name this machine in the URLs that they drag.
bool isThisMachine(const QString& host) {
  return host.isEmpty() || host == QLatin1String("localhost") ||
         host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

}  // namespace

std::optional<std::string> localPathOf(const QUrl& url) {
  if (!url.isLocalFile() || !isThisMachine(url.host())) return std::nullopt;
  const QByteArray encoded = url.path(QUrl::FullyEncoded).toLatin1();
  return QByteArray::fromPercentEncoding(encoded).toStdString();
}

QUrl fileURLOf(const std::string& path) {
  return QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"));
}

}  // namespace tessarine
