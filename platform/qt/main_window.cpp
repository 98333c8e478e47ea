#include "platform/qt/main_window.h"

#include <QApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QShortcut>

#include "platform/qt/edit_menu.h"

namespace tessarine {

namespace {

// In points.
constexpr QSize startSize(880, 560);

}  // namespace

MainWindow::MainWindow(Screen* first, Screen* second) : screens_(new QStackedWidget(this)) {
  setWindowTitle(QApplication::applicationDisplayName());
  setCentralWidget(screens_);
  screens_->addWidget(first);
  screens_->addWidget(second);
  connect(first, &Screen::otherScreenWanted, this,
          [this, second] { screens_->setCurrentWidget(second); });
  connect(second, &Screen::otherScreenWanted, this,
          [this, first] { screens_->setCurrentWidget(first); });
  // The hidden screen may have come to need more room meanwhile, as for a larger font.
  connect(screens_, &QStackedWidget::currentChanged, screens_, &QWidget::updateGeometry);
  for (const QKeySequence& key : {QKeySequence(QKeySequence::Back), QKeySequence(Qt::Key_Escape)}) {
    connect(new QShortcut(key, second), &QShortcut::activated, second, &Screen::otherScreenWanted);
  }
  addMenus();
  resize(startSize.expandedTo(sizeHint()));
}

void MainWindow::addMenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  QAction* quit = file->addAction(tr("&Quit"), this, &QWidget::close);
  quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
  quit->setMenuRole(QAction::QuitRole);

  addEditMenu(*menuBar());

  QMenu* help = menuBar()->addMenu(tr("&Help"));
  QAction* about = help->addAction(tr("&About %1").arg(QApplication::applicationDisplayName()),
                                   this, &MainWindow::showAbout);
  about->setMenuRole(QAction::AboutRole);
}

void MainWindow::showAbout() {
  const QString name = QApplication::applicationDisplayName();
  QMessageBox about(this);
  about.setWindowTitle(tr("About %1").arg(name));
  about.setIconPixmap(windowIcon().pixmap(96));
  about.setText(QStringLiteral("<h3>%1 %2</h3>").arg(name, QApplication::applicationVersion()));
  about.setInformativeText(
      tr("Cuts one picture into the icon sets of iOS, macOS, Apple Watch and Windows 10."));
  about.exec();
}

}  // namespace tessarine
