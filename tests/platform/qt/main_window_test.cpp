#include "platform/qt/main_window.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <functional>

#include "platform/qt/form_field.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;

class MainWindowTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    QApplication::setApplicationDisplayName("Example");
    QApplication::setApplicationVersion("1.2.3");
  }
  static void TearDownTestSuite() {
    QApplication::setApplicationDisplayName({});
    QApplication::setApplicationVersion({});
  }
  MainWindowTest() {
    (new QVBoxLayout(first_))->addWidget(field_);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  QMenu& menu(const QString& title) {
    for (QAction* each : window_.menuBar()->actions()) {
      if (each->text() == title) {
        emit each->menu()->aboutToShow();
        return *each->menu();
      }
    }
    throw std::runtime_error("no menu");
  }
  // The texts of the items that can be chosen.
  std::vector<std::string> enabledItems(const QString& title) {
    std::vector<std::string> texts;
    for (const QAction* each : menu(title).actions()) {
      if (!each->isSeparator() && each->isEnabled()) {
        texts.push_back(each->text().remove('&').toStdString());
      }
    }
    return texts;
  }
  void choose(const QString& title, const QString& text) {
    for (QAction* each : menu(title).actions()) {
      if (each->text().remove('&') == text) each->trigger();
    }
  }

  Screen* first_ = new Screen;
  FormField* field_ = new FormField(first_);
  MainWindow window_{first_, new Screen};
};

TEST_F(MainWindowTest, EditingItemsActOnTheFocusedField) {
  QApplication::clipboard()->clear();
  field_->becomeFirstResponder();
  EXPECT_THAT(enabledItems("&Edit"), ElementsAre());
  QTest::keyClicks(field_, "words");
  EXPECT_THAT(enabledItems("&Edit"), ElementsAre("Undo", "Select All"));
  choose("&Edit", "Select All");
  EXPECT_EQ(field_->selectedText(), "words");
  EXPECT_THAT(enabledItems("&Edit"), ElementsAre("Undo", "Cut", "Copy", "Delete", "Select All"));
  choose("&Edit", "Cut");
  EXPECT_EQ(field_->text(), "");
  choose("&Edit", "Paste");
  choose("&Edit", "Paste");
  EXPECT_EQ(field_->text(), "wordswords");
  choose("&Edit", "Undo");
  EXPECT_EQ(field_->text(), "words");
  choose("&Edit", "Redo");
  EXPECT_EQ(field_->text(), "wordswords");
  choose("&Edit", "Select All");
  choose("&Edit", "Copy");
  choose("&Edit", "Delete");
  EXPECT_EQ(field_->text(), "");
  EXPECT_EQ(QApplication::clipboard()->text(), "wordswords");
}

TEST_F(MainWindowTest, EditingItemsAreDisabledWithoutAField) {
  field_->setText("words");
  field_->clearFocus();
  EXPECT_THAT(enabledItems("&Edit"), ElementsAre());
  choose("&Edit", "Select All");
  EXPECT_EQ(field_->selectedText(), "");
}

TEST_F(MainWindowTest, EditingItemsCanBeReachedByTheArrowKeys) {
  field_->becomeFirstResponder();
  const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window_.windowHandle(), key, modifiers);
  };
  press(Qt::Key_A);
  press(Qt::Key_F, Qt::AltModifier);
  press(Qt::Key_Right);
  press(Qt::Key_T);
  EXPECT_EQ(field_->text(), "a");
  press(Qt::Key_A);
  EXPECT_EQ(field_->selectedText(), "a");
  press(Qt::Key_F, Qt::AltModifier);
  press(Qt::Key_Right);
  press(Qt::Key_T);
  EXPECT_EQ(field_->text(), "");
}

TEST_F(MainWindowTest, QuitClosesTheWindow) {
  EXPECT_THAT(enabledItems("&File"), ElementsAre("Quit"));
  choose("&File", "Quit");
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(MainWindowTest, CtrlQClosesTheWindowFromEveryPlace) {
  const std::vector<std::function<QWidget*()>> places{
      [this] { return &window_; },
      [this] {
        field_->becomeFirstResponder();
        return field_;
      },
      [this] {
        emit first_->otherScreenWanted();
        return &window_;
      },
  };
  for (const auto& place : places) {
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    QTest::keyClick(place(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(window_.isVisible());
  }
}

TEST_F(MainWindowTest, AboutNamesTheProgramAndItsVersion) {
  QString text;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    poll.stop();
    text = box->text();
    box->accept();
  });
  poll.start(5);
  EXPECT_THAT(enabledItems("&Help"), ElementsAre("About Example"));
  choose("&Help", "About Example");
  EXPECT_TRUE(text.contains("Example 1.2.3"));
  EXPECT_EQ(window_.windowTitle(), "Example");
}

TEST_F(MainWindowTest, AFieldThatTakesTheFocusSelectsItsText) {
  field_->setText("words");
  field_->clearFocus();
  field_->becomeFirstResponder();
  EXPECT_TRUE(field_->hasFocus());
  EXPECT_EQ(field_->selectedText(), "words");
  EXPECT_EQ(field_->stringValue(), "words");
}

}  // namespace
}  // namespace tessarine
