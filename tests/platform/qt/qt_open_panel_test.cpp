#include "platform/qt/qt_open_panel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <functional>

#include "tests/support/temporary_folder.h"

namespace tessarine {
namespace {

const OpenPanelSettings folderQuestion{
    .title = "Choose a folder",
    .showsResizeIndicator = true,
    .showsHiddenFiles = false,
    .canChooseFiles = false,
    .canChooseDirectories = true,
    .canCreateDirectories = true,
};

// Runs the panel and hands the dialog to `act`, which must end it, as soon as it is shown.
OpenPanelAnswer ask(const OpenPanelSettings& settings,
                    const std::function<void(QFileDialog&)>& act) {
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    poll.stop();
    act(*dialog);
  });
  poll.start(5);
  return QtOpenPanel().runModal(settings);
}

void choose(QFileDialog& dialog, const std::filesystem::path& path) {
  dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path.string()));
  dialog.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Open)->click();
}

class OpenPanelTest : public ::testing::Test {
 protected:
  testing::TemporaryFolder folder_;
};

TEST_F(OpenPanelTest, AsksAsItIsTold) {
  ask(folderQuestion, [](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Choose a folder");
    EXPECT_TRUE(dialog.isSizeGripEnabled());
    EXPECT_FALSE(dialog.filter().testFlag(QDir::Hidden));
    EXPECT_FALSE(dialog.filter().testFlag(QDir::Files));
    EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
    EXPECT_TRUE(dialog.testOption(QFileDialog::ShowDirsOnly));
    EXPECT_TRUE(dialog.findChild<QToolButton*>("newFolderButton")->isEnabled());
    EXPECT_TRUE(dialog.isModal());
    dialog.reject();
  });
}

TEST_F(OpenPanelTest, AsksTheOppositeAsWell) {
  OpenPanelSettings settings;
  settings.showsHiddenFiles = true;
  ask(settings, [](QFileDialog& dialog) {
    EXPECT_FALSE(dialog.isSizeGripEnabled());
    EXPECT_TRUE(dialog.filter().testFlag(QDir::Hidden));
    EXPECT_TRUE(dialog.filter().testFlag(QDir::Files));
    EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
    EXPECT_FALSE(dialog.testOption(QFileDialog::ShowDirsOnly));
    EXPECT_FALSE(dialog.findChild<QToolButton*>("newFolderButton")->isEnabled());
    dialog.reject();
  });
}

TEST_F(OpenPanelTest, GivesTheChosenFolderAsItIsNamed) {
  for (const char* name : {"plain", "with some spaces", "f\xc3\xbcr \xe5\x9b\xbe\xe6\xa0\x87"}) {
    const auto chosen = folder_.path() / name;
    std::filesystem::create_directory(chosen);
    const auto answer = ask(folderQuestion, [&](QFileDialog& dialog) { choose(dialog, chosen); });
    EXPECT_EQ(answer.response, PanelResponse::confirmed);
    EXPECT_EQ(answer.path, chosen.string());
  }
}

TEST_F(OpenPanelTest, GivesNoTrailingSeparator) {
  const auto answer = ask(
      folderQuestion, [&](QFileDialog& dialog) { choose(dialog, folder_.path().string() + "/"); });
  EXPECT_EQ(answer.path, folder_.path().string());
}

TEST_F(OpenPanelTest, GivesNothingOnCancelThoughAFolderIsSelected) {
  const auto answer = ask(folderQuestion, [&](QFileDialog& dialog) {
    dialog.setDirectory(QString::fromStdString(folder_.path().string()));
    EXPECT_FALSE(dialog.selectedFiles().isEmpty());
    dialog.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Cancel)->click();
  });
  EXPECT_EQ(answer.response, PanelResponse::cancelled);
  EXPECT_EQ(answer.path, std::nullopt);
}

TEST_F(OpenPanelTest, IsANewOneEachTime) {
  ask(folderQuestion, [](QFileDialog& dialog) {
    dialog.setWindowTitle("changed");
    dialog.reject();
  });
  ask(folderQuestion, [](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Choose a folder");
    dialog.reject();
  });
}

}  // namespace
}  // namespace tessarine
