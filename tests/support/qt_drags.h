#pragma once

#include <QMimeData>
#include <QString>
#include <QWidget>
#include <initializer_list>
#include <string>

namespace tessarine::testing {

// The data of a drag of local files, as file managers give it: with the paths as text beside.
void setFiles(QMimeData& data, std::initializer_list<std::string> paths);

// What a widget answered to a drag.
struct DragAnswer {
  bool accepted = false;
  Qt::DropAction action = Qt::IgnoreAction;

  friend bool operator==(const DragAnswer&, const DragAnswer&) = default;
};

inline constexpr DragAnswer copies{true, Qt::CopyAction};

// The events of a drag over a widget; the source allows `possible` and proposes `proposed`.
class Drag {
 public:
  Drag(QWidget& target, const QMimeData& data, Qt::DropActions possible = Qt::CopyAction,
       Qt::DropAction proposed = Qt::CopyAction)
      : target_(target), data_(data), possible_(possible), proposed_(proposed) {}

  DragAnswer enter();
  DragAnswer move();
  DragAnswer drop();
  void leave();

 private:
  template <class Event>
  DragAnswer send();

  QWidget& target_;
  const QMimeData& data_;
  Qt::DropActions possible_;
  Qt::DropAction proposed_;
};

}  // namespace tessarine::testing
