#include <QAccessible>
#include <QLabel>
#include <QTest>
#include <set>

#include "tests/app/screens_fixture.h"

// What people meet who do not use a pointer, or do not see the screen.
namespace tessarine {
namespace {

using ::testing::ElementsAreArray;
using testing::ScreensTest;

QAccessibleInterface& accessible(QWidget& widget) {
  return *QAccessible::queryAccessibleInterface(&widget);
}

// The widgets that the Tab key visits from the first one on, once round.
std::vector<std::string> tabOrder(QWidget& first) {
  std::vector<std::string> names;
  QWidget* widget = &first;
  do {
    names.push_back(widget->objectName().toStdString());
    QTest::keyClick(widget, Qt::Key_Tab);
    widget = widget->window()->focusWidget();
  } while (widget != &first && names.size() < 100);
  return names;
}

TEST_F(ScreensTest, TabGoesThroughTheFormByRows) {
  button(main(), "btnCustom").click();
  dropFile(custom(), pictureFile);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&screens.window()));
  std::vector<std::string> expected;
  for (int row = 1; row <= 8; ++row) {
    for (const char* part : {"", "PixelLeft", "PixelRight"}) {
      expected.push_back("txtFileName" + std::to_string(row) + part);
    }
  }
  expected.insert(expected.end(), {"btnBack", "btnCustom"});
  auto& first = in<QLineEdit>(custom(), "txtFileName1");
  first.setFocus();
  EXPECT_THAT(tabOrder(first), ElementsAreArray(expected));
}

TEST_F(ScreensTest, TabGoesThroughTheButtonsOfTheMainScreen) {
  dropFile(main(), pictureFile);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&screens.window()));
  auto& first = button(main(), "btniOS");
  first.setFocus();
  EXPECT_THAT(tabOrder(first), ElementsAreArray({"btniOS", "btnMacOS", "btnAppleWatch",
                                                 "btnWindows10", "btnCustom"}));
}

TEST_F(ScreensTest, EveryFieldHasANameAndAPlaceholder) {
  for (int row = 1; row <= 8; ++row) {
    const QString number = QString::number(row);
    const std::string name = "txtFileName" + number.toStdString();
    const std::array<std::array<QString, 3>, 3> fields{
        {{"", "File name " + number, "AppIcon0" + number},
         {"PixelLeft", "Width " + number, "1024"},
         {"PixelRight", "Height " + number, "1024"}}};
    for (const auto& [part, label, placeholder] : fields) {
      auto& field = in<QLineEdit>(custom(), name + part.toStdString());
      EXPECT_EQ(accessible(field).text(QAccessible::Name), label);
      EXPECT_NE(accessible(field).text(QAccessible::Description), "");
      EXPECT_EQ(accessible(field).role(), QAccessible::EditableText);
      EXPECT_EQ(field.placeholderText(), placeholder);
      EXPECT_EQ(field.text(), "");
    }
  }
}

TEST_F(ScreensTest, TheWellIsAPictureThatTellsWhatItHolds) {
  for (QWidget* screen : {&main(), &custom()}) {
    auto& well = accessible(in<PictureWell>(*screen, "imageView"));
    EXPECT_EQ(well.role(), QAccessible::Graphic);
    EXPECT_EQ(well.text(QAccessible::Name), "Picture");
    EXPECT_EQ(well.text(QAccessible::Description), "No picture yet");
    dropFile(*screen, pictureFile);
    EXPECT_EQ(well.text(QAccessible::Description), "300 × 200 pixels");
    EXPECT_EQ(in<QLabel>(*screen, "contentsLabel").text(), "300 × 200 pixels");
  }
}

TEST_F(ScreensTest, EveryControlInTheTreeHasANameAndARole) {
  for (QWidget* screen : {&main(), &custom()}) {
    for (QWidget* widget : screen->findChildren<QWidget*>()) {
      if (widget->focusPolicy() == Qt::NoFocus) continue;
      EXPECT_NE(accessible(*widget).text(QAccessible::Name), "")
          << widget->objectName().toStdString();
      EXPECT_NE(accessible(*widget).role(), QAccessible::Client)
          << widget->objectName().toStdString();
    }
  }
  EXPECT_EQ(accessible(button(main(), "btniOS")).text(QAccessible::Description), "23 images");
}

TEST_F(ScreensTest, MnemonicsAreUniqueOnEachScreen) {
  for (QWidget* screen : {&main(), &custom()}) {
    std::set<QString> seen{"Alt+F", "Alt+E", "Alt+H"};  // the menus'
    const auto add = [&](const QString& text) {
      const QString key = QKeySequence::mnemonic(text).toString();
      EXPECT_TRUE(key.isEmpty() || seen.insert(key).second) << text.toStdString();
    };
    for (const auto* each : screen->findChildren<QPushButton*>()) add(each->text());
    for (const auto* each : screen->findChildren<QLabel*>()) {
      if (each->buddy() != nullptr) add(each->text());
    }
    EXPECT_GE(seen.size(), 8U);
  }
}

class ScreensScaled : public ScreensTest, public ::testing::WithParamInterface<int> {
 protected:
  ~ScreensScaled() override { QApplication::setFont(before_); }
  const QFont before_ = QApplication::font();
};

// Larger text, as large as 300 %: the window grows, and every text keeps the place it needs.
TEST_P(ScreensScaled, ClipNothing) {
  QFont font = before_;
  font.setPointSizeF(before_.pointSizeF() * GetParam() / 100);
  QApplication::setFont(font);
  QApplication::processEvents();
  screens.window().resize(screens.window().minimumSizeHint());
  for (QWidget* screen : {&main(), &custom()}) {
    if (screen == &custom()) button(main(), "btnCustom").click();
    QApplication::processEvents();
    for (const QWidget* widget : screen->findChildren<QWidget*>()) {
      if (qobject_cast<const QLabel*>(widget) == nullptr &&
          qobject_cast<const QPushButton*>(widget) == nullptr &&
          qobject_cast<const QLineEdit*>(widget) == nullptr) {
        continue;
      }
      const QSize needed = widget->minimumSizeHint();
      EXPECT_GE(widget->width(), needed.width()) << widget->objectName().toStdString();
      EXPECT_GE(widget->height(), needed.height()) << widget->objectName().toStdString();
      EXPECT_TRUE(screen->rect().contains(QRect(widget->mapTo(screen, QPoint()), widget->size())))
          << widget->objectName().toStdString();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Percent, ScreensScaled, ::testing::Values(100, 150, 200, 300));

}  // namespace
}  // namespace tessarine
