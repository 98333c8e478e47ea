#pragma once

#include <QWidget>
#include <optional>

#include "platform/dragging.h"
#include "platform/pictures.h"
#include "platform/qt/frame_layer.h"

namespace tessarine {

// The widget under a whole screen that hands its drags to their destination. Its children take no
// drops, so that every drag over the screen arrives here.
class DropArea final : public QWidget, public DropView {
  Q_OBJECT

 public:
  explicit DropArea(QWidget* parent = nullptr) : QWidget(parent) {}

  // Both must outlive the widget's last drag; `pictures` reads what is dragged as bytes.
  void setDestination(DraggingDestination& destination, Pictures& pictures);

  void setWantsLayer(bool wanted) override;
  Layer* layer() override { return layer_ ? &*layer_ : nullptr; }
  void registerForDraggedTypes(std::span<const std::string_view> types) override;

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void answer(QDropEvent& event) const;

  DraggingDestination* destination_ = nullptr;
  Pictures* pictures_ = nullptr;
  std::optional<FrameLayer> layer_;
  DragOperation operation_ = DragOperation::none;
};

}  // namespace tessarine
