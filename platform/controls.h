#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/picture.h"

namespace tessarine {

// The colours that the program asks for by role; the platform knows their values.
enum class FrameColor { accent, clear, lightGray };

// The frame that a view's backing draws around it.
class Layer {
 public:
  virtual ~Layer() = default;

  virtual void setBorderColor(FrameColor color) = 0;
  // In points; 0 draws no frame.
  virtual void setBorderWidth(double width) = 0;
};

// A view that can have a layer. The layer belongs to the view; null while there is none.
class View {
 public:
  virtual ~View() = default;

  virtual void setWantsLayer(bool wanted) = 0;
  virtual Layer* layer() = 0;
};

// A view that drags can be dropped on.
class DropView : public View {
 public:
  virtual void registerForDraggedTypes(std::span<const std::string_view> types) = 0;
};

// The picture well.
class ImageView : public View {
 public:
  // Shows the picture, or none.
  virtual void setImage(const std::optional<Picture>& picture) = 0;
};

class Button {
 public:
  virtual ~Button() = default;

  virtual void setEnabled(bool enabled) = 0;
};

class TextField {
 public:
  virtual ~TextField() = default;

  // The text as typed, in UTF-8.
  virtual std::string stringValue() = 0;
  // Takes the keyboard focus.
  virtual void becomeFirstResponder() = 0;
};

}  // namespace tessarine
