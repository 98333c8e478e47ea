#include "platform/qt/qt_open_panel.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>

namespace tessarine {

namespace {

void apply(const OpenPanelSettings& settings, QFileDialog& dialog) {
  const bool foldersOnly = settings.canChooseDirectories && !settings.canChooseFiles;
  QDir::Filters shown = QDir::AllDirs | QDir::NoDotAndDotDot;
  shown.setFlag(QDir::Files, settings.canChooseFiles);
  shown.setFlag(QDir::Hidden, settings.showsHiddenFiles);

  dialog.setWindowTitle(QString::fromStdString(settings.title));
  dialog.setSizeGripEnabled(settings.showsResizeIndicator);
  dialog.setFileMode(settings.canChooseDirectories ? QFileDialog::Directory
                                                   : QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::ShowDirsOnly, foldersOnly);
  dialog.setOption(QFileDialog::ReadOnly, !settings.canCreateDirectories);
  dialog.setFilter(shown);
}

}  // namespace

OpenPanelAnswer QtOpenPanel::runModal(const OpenPanelSettings& settings) {
  QFileDialog dialog(QApplication::activeWindow());
  apply(settings, dialog);
  // A cancelled dialog still tells a path, so its result alone is trusted.
  if (dialog.exec() != QDialog::Accepted) return {PanelResponse::cancelled, std::nullopt};
  const QStringList chosen = dialog.selectedFiles();
  if (chosen.isEmpty()) return {PanelResponse::confirmed, std::nullopt};
  return {PanelResponse::confirmed, QFile::encodeName(chosen.first()).toStdString()};
}

}  // namespace tessarine
