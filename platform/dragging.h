#pragma once

#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "platform/picture.h"

namespace tessarine {

// What a drag carries, in the order in which it carries it.
struct ColorItem {};
struct TextItem {
  std::string text;
};
struct FileItem {
  // In the file system's own encoding.
  std::string path;
};
using DragItem = std::variant<Picture, ColorItem, TextItem, FileItem>;

enum class ReadableClass { image, color, string, url };

struct ReadingOptions {
  // MIME types; a file is an item only when its content type conforms to one of them.
  std::vector<std::string> urlContentsConformToTypes;
};

class DraggingPasteboard {
 public:
  virtual ~DraggingPasteboard() = default;

  virtual bool canReadObjects(std::span<const ReadableClass> classes,
                              const ReadingOptions& options) = 0;
  // Items that cannot be read are left out; nothing when the pasteboard gives no answer at all.
  virtual std::optional<std::vector<DragItem>> readObjects(std::span<const ReadableClass> classes,
                                                           const ReadingOptions& options) = 0;
};

class DestinationWindow {
 public:
  virtual ~DestinationWindow() = default;

  // To the front of all windows, whichever application is active, without taking the focus.
  virtual void orderFrontRegardless() = 0;
};

enum class DragOperation { none = 0, copy = 1 };

// One drag over a drop view.
class DraggingInfo {
 public:
  virtual ~DraggingInfo() = default;

  virtual DraggingPasteboard& draggingPasteboard() = 0;
  // Null when the view is in no window.
  virtual DestinationWindow* draggingDestinationWindow() = 0;
};

}  // namespace tessarine
