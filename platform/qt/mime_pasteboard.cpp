#include "platform/qt/mime_pasteboard.h"

#include <QUrl>
#include <algorithm>

#include "platform/qt/content_type.h"
#include "platform/qt/native_path.h"

namespace tessarine {

namespace {

bool contains(std::span<const ReadableClass> classes, ReadableClass wanted) {
  return std::ranges::find(classes, wanted) != classes.end();
}

// One URL of a list that names local files; a link to elsewhere counts as its text.
std::optional<DragItem> itemOf(const QUrl& url, std::span<const ReadableClass> classes,
                               const ReadingOptions& options) {
  if (const auto path = localPathOf(url)) {
    if (!contains(classes, ReadableClass::url)) return std::nullopt;
    if (!conformsToTypes(*path, options.urlContentsConformToTypes)) return std::nullopt;
    return FileItem{*path};
  }
  if (url.isLocalFile() || !contains(classes, ReadableClass::string)) return std::nullopt;
  return TextItem{url.toString().toStdString()};
}

}  // namespace

bool MimePasteboard::carriesFileURLs() const {
  return std::ranges::any_of(data_.urls(), &QUrl::isLocalFile);
}

QString MimePasteboard::pictureFormat() const {
  const QStringList formats = data_.formats();
  for (const std::string& type : pictures_.imageTypes()) {
    const auto format = std::ranges::find_if(formats, [&](const QString& each) {
      return each.startsWith(QLatin1String("image/")) && inheritsType(each.toStdString(), type);
    });
    if (format != formats.end()) return *format;
  }
  return {};
}

bool MimePasteboard::canReadObjects(std::span<const ReadableClass> classes,
                                    const ReadingOptions& options) {
  if (carriesFileURLs()) {
    return std::ranges::any_of(
        data_.urls(), [&](const QUrl& url) { return itemOf(url, classes, options).has_value(); });
  }
  return (contains(classes, ReadableClass::image) && !pictureFormat().isEmpty()) ||
         (contains(classes, ReadableClass::color) && data_.hasColor()) ||
         (contains(classes, ReadableClass::string) && data_.hasText());
}

std::optional<std::vector<DragItem>> MimePasteboard::readObjects(
    std::span<const ReadableClass> classes, const ReadingOptions& options) {
  std::vector<DragItem> items;
  if (carriesFileURLs()) {
    for (const QUrl& url : data_.urls()) {
      if (auto item = itemOf(url, classes, options)) items.push_back(*std::move(item));
    }
    return items;
  }
  const QString format = contains(classes, ReadableClass::image) ? pictureFormat() : QString();
  if (!format.isEmpty()) {
    const QByteArray encoded = data_.data(format);
    const auto bytes = ByteBuffer::copyOf({reinterpret_cast<const std::uint8_t*>(encoded.data()),
                                           static_cast<std::size_t>(encoded.size())});
    const auto picture = bytes ? pictures_.decode(*bytes) : std::nullopt;
    if (picture) items.emplace_back(*picture);
  } else if (contains(classes, ReadableClass::color) && data_.hasColor()) {
    items.emplace_back(ColorItem{});
  } else if (contains(classes, ReadableClass::string) && data_.hasText()) {
    items.emplace_back(TextItem{data_.text().toStdString()});
  }
  return items;
}

}  // namespace tessarine
