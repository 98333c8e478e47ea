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

// What a drop view hands its drags to: `draggingEntered`, then either `draggingExited`, or the
// drop. The answer to `draggingEntered` stands for the whole drag. A drop is performed, concluded
// when it was performed, and ended in any case.
class DraggingDestination {
 public:
  virtual ~DraggingDestination() = default;

  virtual DragOperation draggingEntered(DraggingInfo& sender) = 0;
  virtual bool performDragOperation(DraggingInfo& sender) = 0;
  virtual void concludeDragOperation(DraggingInfo& sender) = 0;
  virtual void draggingEnded(DraggingInfo& sender) = 0;
  virtual void draggingExited(DraggingInfo& sender) = 0;
};

}  // namespace tessarine
