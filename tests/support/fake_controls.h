#pragma once

#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/dragging.h"
#include "tests/support/recording_platform.h"

namespace tessarine::testing {

// Controls that write every call into a journal, each under its name.
class FakeLayer final : public Layer {
 public:
  FakeLayer(Journal& journal, std::string name) : journal_(journal), name_(std::move(name)) {}
  void setBorderColor(FrameColor color) override;
  void setBorderWidth(double width) override;

 private:
  Journal& journal_;
  std::string name_;
};

class FakeDropView final : public DropView {
 public:
  explicit FakeDropView(Journal& journal) : journal_(journal) {}
  void setWantsLayer(bool wanted) override;
  Layer* layer() override { return hasLayer ? &layer_ : nullptr; }
  void registerForDraggedTypes(std::span<const std::string_view> types) override;

  bool hasLayer = true;

 private:
  Journal& journal_;
  FakeLayer layer_{journal_, "view"};
};

class FakeImageView final : public ImageView {
 public:
  explicit FakeImageView(Journal& journal) : journal_(journal) {}
  void setWantsLayer(bool wanted) override;
  Layer* layer() override { return hasLayer ? &layer_ : nullptr; }
  void setImage(const std::optional<Picture>& picture) override;

  bool hasLayer = true;

 private:
  Journal& journal_;
  FakeLayer layer_{journal_, "well"};
};

class FakeButton final : public Button {
 public:
  FakeButton(Journal& journal, std::string name) : journal_(journal), name_(std::move(name)) {}
  void setEnabled(bool enabled) override;

 private:
  Journal& journal_;
  std::string name_;
};

class FakeTextField final : public TextField {
 public:
  FakeTextField(Journal& journal, std::string name) : journal_(journal), name_(std::move(name)) {}
  std::string stringValue() override;
  void becomeFirstResponder() override;

  std::string text;

 private:
  Journal& journal_;
  std::string name_;
};

// A drag whose pasteboard answers with `items`, or gives no answer at all.
class FakeDrag final : public DraggingInfo, public DraggingPasteboard, public DestinationWindow {
 public:
  explicit FakeDrag(Journal& journal) : journal_(journal) {}

  DraggingPasteboard& draggingPasteboard() override { return *this; }
  DestinationWindow* draggingDestinationWindow() override { return hasWindow ? this : nullptr; }
  bool canReadObjects(std::span<const ReadableClass> classes,
                      const ReadingOptions& options) override;
  std::optional<std::vector<DragItem>> readObjects(std::span<const ReadableClass> classes,
                                                   const ReadingOptions& options) override;
  void orderFrontRegardless() override { journal_.push_back("window to front"); }

  bool readable = true;
  bool hasWindow = true;
  std::optional<std::vector<DragItem>> items;
  // What the last question asked for.
  std::vector<ReadableClass> classes;
  std::vector<std::string> types;

 private:
  Journal& journal_;
};

}  // namespace tessarine::testing
