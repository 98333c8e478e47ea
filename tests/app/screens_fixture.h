#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <string>

#include "app/screens.h"
#include "platform/qt/drop_area.h"
#include "platform/qt/picture_well.h"
#include "tests/support/qt_drags.h"
#include "tests/support/recording_platform.h"
#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

// Both screens on a host that records, with a picture file and a text file to drop.
class ScreensTest : public ::testing::Test {
 protected:
  ScreensTest() {
    host.pictures.types = {"image/png"};
    host.pictures.decodable["tiff of 300x200"] = plainPicture({300, 200});
    host.pictures.files[pictureFile] = plainPicture({300, 200});
    writeFile(pictureFile, "\x89PNG\r\n\x1a\n and so on");
    writeFile(textFile, "words");
    screens.window().show();
  }

  QWidget& screen(const char* name) { return *screens.window().findChild<Screen*>(name); }
  QWidget& main() { return screen("MainScreen"); }
  QWidget& custom() { return screen("CustomScreen"); }

  template <class Widget>
  static Widget& in(QWidget& screen, const std::string& name) {
    auto* widget = screen.findChild<Widget*>(QString::fromStdString(name));
    if (widget == nullptr) throw std::runtime_error("no widget " + name);
    return *widget;
  }
  static QPushButton& button(QWidget& screen, const std::string& name) {
    return in<QPushButton>(screen, name);
  }

  void dropFile(QWidget& screen, const std::string& path) {
    QMimeData data;
    setFiles(data, {path});
    Drag drag(in<DropArea>(screen, "dropArea"), data);
    drag.enter();
    drag.drop();
  }

  TemporaryFolder folder;
  std::string pictureFile = folder.path() / "picture.png";
  std::string textFile = folder.path() / "words.txt";
  RecordingPlatform host;
  Screens screens{host.platform};
};

inline const std::vector<std::string> generationButtons{"btniOS", "btnMacOS", "btnAppleWatch",
                                                        "btnWindows10"};

}  // namespace tessarine::testing
