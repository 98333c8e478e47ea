#pragma once

#include <QString>
#include <QUrl>
#include <optional>
#include <string>

namespace tessarine {

// The exact bytes of the path that a URL of a file on this machine names, also where they are not
// text in the system's encoding; nothing for any other URL, and where a NUL is among them.
std::optional<std::string> localPathOf(const QUrl& url);

// The URL of a path in the file system's own encoding.
QUrl fileURLOf(const std::string& path);

}  // namespace tessarine
