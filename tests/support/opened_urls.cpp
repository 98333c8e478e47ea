#include "tests/support/opened_urls.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QDesktopServices>

namespace tessarine::testing {

OpenedURLs::OpenedURLs() {
  QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
}

OpenedURLs::~OpenedURLs() {
  QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

void OpenedURLs::open(const QUrl& url) {
  urls.append(url);
  struct stat output {};
  struct stat nowhere {};
  outputWentNowhere = ::fstat(STDOUT_FILENO, &output) == 0 && ::stat("/dev/null", &nowhere) == 0 &&
                      output.st_rdev == nowhere.st_rdev && S_ISCHR(output.st_mode);
}

}  // namespace tessarine::testing
