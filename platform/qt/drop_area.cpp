#include "platform/qt/drop_area.h"

#include <QDropEvent>
#include <QMimeData>
#include <QPainter>

#include "platform/qt/colors.h"
#include "platform/qt/mime_pasteboard.h"

namespace tessarine {

namespace {

class QtDestinationWindow final : public DestinationWindow {
 public:
  explicit QtDestinationWindow(QWidget& window) : window_(window) {}
  // Without activateWindow: the focus stays where the drag came from.
  void orderFrontRegardless() override { window_.raise(); }

 private:
  QWidget& window_;
};

class QtDraggingInfo final : public DraggingInfo {
 public:
  QtDraggingInfo(QWidget& view, const QMimeData& data, Pictures& pictures)
      : pasteboard_(data, pictures), window_(*view.window()) {}

  DraggingPasteboard& draggingPasteboard() override { return pasteboard_; }
  DestinationWindow* draggingDestinationWindow() override { return &window_; }

 private:
  MimePasteboard pasteboard_;
  QtDestinationWindow window_;
};

}  // namespace

void DropArea::setDestination(DraggingDestination& destination, Pictures& pictures) {
  destination_ = &destination;
  pictures_ = &pictures;
}

void DropArea::setWantsLayer(bool wanted) {
  if (!wanted) {
    layer_.reset();
  } else if (!layer_) {
    layer_.emplace(*this);
  }
}

void DropArea::registerForDraggedTypes(std::span<const std::string_view>) {
  // Whatever the types: the destination judges every drag by what can be read from it.
  setAcceptDrops(true);
}

void DropArea::answer(QDropEvent& event) const {
  // Never the source's own proposal, which may be to move the file away.
  event.setDropAction(Qt::CopyAction);
  event.setAccepted(operation_ == DragOperation::copy);
}

void DropArea::dragEnterEvent(QDragEnterEvent* event) {
  // A source that allows no copy cannot be served; Qt sends nothing more of a refused drag.
  if (!event->possibleActions().testFlag(Qt::CopyAction)) return event->ignore();
  QtDraggingInfo sender(*this, *event->mimeData(), *pictures_);
  operation_ = destination_->draggingEntered(sender);
  answer(*event);
}

void DropArea::dragMoveEvent(QDragMoveEvent* event) {
  answer(*event);
}

void DropArea::dragLeaveEvent(QDragLeaveEvent*) {
  // Qt no longer gives the drag's data when it has left.
  const QMimeData nothing;
  QtDraggingInfo sender(*this, nothing, *pictures_);
  destination_->draggingExited(sender);
}

void DropArea::dropEvent(QDropEvent* event) {
  answer(*event);
  QtDraggingInfo sender(*this, *event->mimeData(), *pictures_);
  event->setAccepted(destination_->performDragOperation(sender));
  if (event->isAccepted()) destination_->concludeDragOperation(sender);
  destination_->draggingEnded(sender);
}

void DropArea::paintEvent(QPaintEvent*) {
  if (!layer_ || layer_->borderWidth() <= 0.0) return;
  QPainter painter(this);
  QColor wash = frameColor(layer_->borderColor(), palette());
  wash.setAlphaF(wash.alphaF() * 0.06F);
  painter.fillRect(rect(), wash);
  layer_->paint(painter, 0.0);
}

}  // namespace tessarine
