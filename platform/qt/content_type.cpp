#include "platform/qt/content_type.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QMimeDatabase>
#include <algorithm>

namespace tessarine {

namespace {

// Opened once, by bytes: a name need not be text, and whatever the path names by the time of the
// opening, waiting for a pipe's other end is not part of it.
bool openRegularFile(const std::string& path, QFile& file) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  if (descriptor < 0) return false;
  struct stat status {};
  if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) ||
      !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
    ::close(descriptor);
    return false;
  }
  return true;
}

}  // namespace

bool conformsToTypes(const std::string& path, const std::vector<std::string>& types) {
  QFile file;
  if (!openRegularFile(path, file)) return false;
  // The contents are read only where the name leaves the type open.
  const QMimeType type = QMimeDatabase().mimeTypeForFileNameAndData(
      QFile::decodeName(QByteArray::fromStdString(path)), &file);
  return std::ranges::any_of(
      types, [&](const std::string& each) { return type.inherits(QString::fromStdString(each)); });
}

bool inheritsType(const std::string& type, const std::string& ancestor) {
  return QMimeDatabase()
      .mimeTypeForName(QString::fromStdString(type))
      .inherits(QString::fromStdString(ancestor));
}

}  // namespace tessarine
