#pragma once

#include <QList>
#include <QObject>
#include <QUrl>

namespace tessarine::testing {

// Stands in for whatever the desktop opens folders with, for as long as it lives.
class OpenedURLs final : public QObject {
  Q_OBJECT

 public:
  OpenedURLs();
  ~OpenedURLs() override;

  QList<QUrl> urls;
  // Whether standard output led to the null device during the last opening.
  bool outputWentNowhere = false;

 public slots:
  void open(const QUrl& url);
};

}  // namespace tessarine::testing
