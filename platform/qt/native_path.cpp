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
  std::string path = QByteArray::fromPercentEncoding(encoded).toStdString();
  // The system would take the path up to its first NUL, which is another file's.
  if (path.find('\0') != std::string::npos) return std::nullopt;
  return path;
}

QUrl fileURLOf(const std::string& path) {
  return QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"));
}

}  // namespace tessarine
