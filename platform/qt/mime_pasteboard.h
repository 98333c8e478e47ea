#pragma once

#include <QMimeData>

#include "platform/dragging.h"
#include "platform/pictures.h"

namespace tessarine {

// What a drag carries, read from Qt's rendition of it. Each URL of a list that names a local file
// is an item. Without any file URL, picture bytes are one picture item; else a colour is an item;
// else the text. Other renditions beside file URLs are the same items again and not looked at.
class MimePasteboard final : public DraggingPasteboard {
 public:
  // Both arguments must outlive the pasteboard.
  MimePasteboard(const QMimeData& data, Pictures& pictures) : data_(data), pictures_(pictures) {}

  bool canReadObjects(std::span<const ReadableClass> classes,
                      const ReadingOptions& options) override;
  std::optional<std::vector<DragItem>> readObjects(std::span<const ReadableClass> classes,
                                                   const ReadingOptions& options) override;

 private:
  bool carriesFileURLs() const;
  // The drag's own name for its best rendition as a picture; empty when it has none.
  QString pictureFormat() const;

  const QMimeData& data_;
  Pictures& pictures_;
};

}  // namespace tessarine
