#include "platform/qt/content_type.h"

#include <QFile>
#include <QMimeDatabase>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace tessarine {

namespace {

// As many bytes as the shared database's rules look at.
constexpr qsizetype sniffedBytes = 16384;

// Read by bytes and not through QFile, which cannot open a name that is not text.
QByteArray beginningOf(const std::string& path) {
  QByteArray bytes(sniffedBytes, Qt::Uninitialized);
  std::ifstream file(path, std::ios::binary);
  file.read(bytes.data(), bytes.size());
  bytes.truncate(static_cast<qsizetype>(file.gcount()));
  return bytes;
}

}  // namespace

bool conformsToTypes(const std::string& path, const std::vector<std::string>& types) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return false;
  const QMimeType type = QMimeDatabase().mimeTypeForFileNameAndData(
      QFile::decodeName(QByteArray::fromStdString(path)), beginningOf(path));
  return std::ranges::any_of(
      types, [&](const std::string& each) { return type.inherits(QString::fromStdString(each)); });
}

bool inheritsType(const std::string& type, const std::string& ancestor) {
  return QMimeDatabase()
      .mimeTypeForName(QString::fromStdString(type))
      .inherits(QString::fromStdString(ancestor));
}

}  // namespace tessarine
