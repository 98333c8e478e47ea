#include "tests/support/qt_drags.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QUrl>

namespace tessarine::testing {

void setFiles(QMimeData& data, std::initializer_list<std::string> paths) {
  QByteArray urls;
  QString text;
  for (const std::string& path : paths) {
    urls += "file://" + QByteArray::fromStdString(path).toPercentEncoding("/") + "\r\n";
    text += QString::fromStdString(path) + '\n';
  }
  data.setData(QStringLiteral("text/uri-list"), urls);
  data.setText(text);
}

template <class Event>
DragAnswer Drag::send() {
  const QRect place = target_.rect();
  const auto position = [&] {
    if constexpr (std::is_same_v<Event, QDropEvent>) {
      return QPointF(place.center());
    } else {
      return place.center();
    }
  }();
  Event event(position, possible_, &data_, Qt::LeftButton, Qt::NoModifier);
  event.setDropAction(proposed_);
  QCoreApplication::sendEvent(&target_, &event);
  return {event.isAccepted(), event.isAccepted() ? event.dropAction() : Qt::IgnoreAction};
}

DragAnswer Drag::enter() {
  return send<QDragEnterEvent>();
}
DragAnswer Drag::move() {
  return send<QDragMoveEvent>();
}
DragAnswer Drag::drop() {
  return send<QDropEvent>();
}
void Drag::leave() {
  QDragLeaveEvent event;
  QCoreApplication::sendEvent(&target_, &event);
}

}  // namespace tessarine::testing
