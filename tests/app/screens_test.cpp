#include <QTest>
#include <QTimer>

#include "app/app_delegate.h"
#include "iconsets/apple_watch.h"
#include "iconsets/ios.h"
#include "iconsets/macos.h"
#include "iconsets/windows10.h"
#include "tests/app/screens_fixture.h"
#include "tests/support/telling_panel.h"

namespace tessarine {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using testing::generationButtons;
using ::testing::IsEmpty;
using testing::ScreensTest;

TEST_F(ScreensTest, StartWithEveryGenerationButtonDisabled) {
  for (const std::string& name : generationButtons) {
    EXPECT_FALSE(button(main(), name).isEnabled()) << name;
    EXPECT_FALSE(button(main(), name).toolTip().isEmpty()) << name;
  }
  EXPECT_TRUE(button(main(), "btnCustom").isEnabled());
  EXPECT_FALSE(button(custom(), "btnCustom").isEnabled());
  EXPECT_FALSE(button(custom(), "btnCustom").toolTip().isEmpty());
  EXPECT_THAT(host.journal, IsEmpty());
}

TEST_F(ScreensTest, ADroppedFileEnablesTheButtonsOfItsScreenAlone) {
  dropFile(main(), pictureFile);
  for (const std::string& name : generationButtons) {
    EXPECT_TRUE(button(main(), name).isEnabled()) << name;
    EXPECT_TRUE(button(main(), name).toolTip().isEmpty()) << name;
  }
  EXPECT_FALSE(button(custom(), "btnCustom").isEnabled());
  EXPECT_EQ(in<PictureWell>(main(), "imageView").accessibleDescription(), "300 × 200 pixels");
  EXPECT_EQ(in<PictureWell>(custom(), "imageView").accessibleDescription(), "No picture yet");
  dropFile(custom(), pictureFile);
  EXPECT_TRUE(button(custom(), "btnCustom").isEnabled());
}

TEST_F(ScreensTest, DroppedPictureDataIsShownButEnablesNothing) {
  host.pictures.decodable["a picture"] = testing::plainPicture({300, 200});
  QMimeData data;
  data.setData("image/png", "a picture");
  testing::Drag drag(in<DropArea>(main(), "dropArea"), data);
  drag.enter();
  drag.drop();
  EXPECT_EQ(in<PictureWell>(main(), "imageView").accessibleDescription(), "300 × 200 pixels");
  for (const std::string& name : generationButtons) {
    EXPECT_FALSE(button(main(), name).isEnabled()) << name;
  }
}

struct Press {
  const char* button;
  const IconSet& set;
};

class ScreensPresses : public ScreensTest, public ::testing::WithParamInterface<Press> {};

TEST_P(ScreensPresses, RunTheirOwnGenerator) {
  dropFile(main(), pictureFile);
  host.journal.clear();
  button(main(), GetParam().button).click();
  for (const std::string_view name : GetParam().set.names) {
    EXPECT_TRUE(host.files.written.contains("/picked/" + std::string(name) + ".png")) << name;
  }
  EXPECT_EQ(host.journal.front(), "ask");
  EXPECT_EQ(host.journal.back(), "reveal '/picked'");
}

INSTANTIATE_TEST_SUITE_P(Buttons, ScreensPresses,
                         ::testing::Values(Press{"btniOS", iOSIconSet},
                                           Press{"btnMacOS", macOSIconSet},
                                           Press{"btnAppleWatch", appleWatchIconSet},
                                           Press{"btnWindows10", windows10IconSet}),
                         [](const auto& row) { return std::string(row.param.button); });

TEST_F(ScreensTest, CustomButtonOfTheMainScreenOnlyLeadsToTheOther) {
  dropFile(main(), pictureFile);
  host.journal.clear();
  button(main(), "btnCustom").click();
  EXPECT_TRUE(custom().isVisible());
  EXPECT_FALSE(main().isVisible());
  EXPECT_THAT(host.journal, IsEmpty());
}

TEST_F(ScreensTest, ManyWaysLeadBack) {
  const auto byKey = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
    return [this, key, modifiers] {
      QTest::keyClick(&in<QLineEdit>(custom(), "txtFileName2"), key, modifiers);
    };
  };
  const std::vector<std::function<void()>> ways{
      [this] { button(custom(), "btnBack").click(); },
      byKey(Qt::Key_Escape, Qt::NoModifier),
      byKey(Qt::Key_Left, Qt::AltModifier),
  };
  ASSERT_TRUE(QTest::qWaitForWindowActive(&screens.window()));
  for (const auto& goBack : ways) {
    button(main(), "btnCustom").click();
    ASSERT_TRUE(custom().isVisible());
    goBack();
    EXPECT_TRUE(main().isVisible());
  }
  QTest::keyClick(&screens.window(), Qt::Key_Escape);
  EXPECT_TRUE(main().isVisible());
}

TEST_F(ScreensTest, ReturnInTheFormPressesItsButton) {
  button(main(), "btnCustom").click();
  QTest::keyClick(&in<QLineEdit>(custom(), "txtFileName1"), Qt::Key_Return);
  EXPECT_THAT(host.journal, IsEmpty());
  dropFile(custom(), pictureFile);
  host.journal.clear();
  QTest::keyClick(&in<QLineEdit>(custom(), "txtFileName8PixelRight"), Qt::Key_Return);
  EXPECT_THAT(host.journal,
              ElementsAre("alert Please type in a name for \"AppIcon01\" text field and try again. "
                          "[OK]"));
  EXPECT_EQ(screens.window().focusWidget(), &in<QLineEdit>(custom(), "txtFileName1"));
}

TEST_F(ScreensTest, EveryRowOfTheFormIsCut) {
  dropFile(custom(), pictureFile);
  for (int row = 1; row <= 8; ++row) {
    const std::string name = "txtFileName" + std::to_string(row);
    in<QLineEdit>(custom(), name).setText(QString("Row%1").arg(row));
    in<QLineEdit>(custom(), name + "PixelLeft").setText(QString::number(10 + row));
    in<QLineEdit>(custom(), name + "PixelRight").setText(QString::number(20 + row));
  }
  button(custom(), "btnCustom").click();
  for (int row = 1; row <= 8; ++row) {
    EXPECT_THAT(host.journal, Contains("write /picked/Row" + std::to_string(row) + ".png " +
                                       std::to_string(10 + row) + "x" + std::to_string(20 + row)));
  }
}

TEST_F(ScreensTest, OnlyTheWholeScreenTakesDrops) {
  for (QWidget* each : {&main(), &custom()}) {
    for (const QWidget* widget : each->findChildren<QWidget*>()) {
      EXPECT_EQ(widget->acceptDrops(), widget->objectName() == "dropArea")
          << widget->objectName().toStdString();
    }
  }
}

TEST_F(ScreensTest, ClosingTheWindowEndsTheProgramWell) {
  QApplication::setQuitOnLastWindowClosed(
      AppDelegate().applicationShouldTerminateAfterLastWindowClosed());
  QTimer::singleShot(0, &screens.window(), &QWidget::close);
  EXPECT_EQ(QApplication::exec(), 0);
}

using ScreensDeathTest = ScreensTest;

TEST_F(ScreensDeathTest, ATextFileFirstAsksForTheFolderThenStopsSilently) {
  testing::TellingPanel panel;
  Platform platform{host.pictures,         host.files,         panel, host.platform.workspace,
                    host.platform.console, host.platform.alert};
  Screens telling(platform);
  auto& tellingMain = in<Screen>(telling.window(), "MainScreen");
  dropFile(tellingMain, textFile);
  ASSERT_TRUE(button(tellingMain, "btniOS").isEnabled());
  EXPECT_EXIT(button(tellingMain, "btniOS").click(), ::testing::KilledBySignal(SIGABRT),
              "asked\n$");
}

}  // namespace
}  // namespace tessarine
