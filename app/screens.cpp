#include "app/screens.h"

#include <QCoreApplication>
#include <array>

#include "app/custom_drag_view.h"
#include "app/custom_vc.h"
#include "app/drag_view.h"
#include "app/view_controller.h"
#include "iconsets/apple_watch.h"
#include "iconsets/ios.h"
#include "iconsets/macos.h"
#include "iconsets/windows10.h"
#include "output/resampler.h"
#include "ui_custom_screen.h"
#include "ui_main_screen.h"

namespace tessarine {

namespace {

// A button of the main screen, what it does, and the set that it is for.
struct SetButton {
  CardButton* Ui_MainScreen::*button;
  void (DragView::*action)();
  const IconSet& set;
};

constexpr std::array setButtons{
    SetButton{&Ui::MainScreen::btniOS, &DragView::btniOS, iOSIconSet},
    SetButton{&Ui::MainScreen::btnMacOS, &DragView::btnMacOS, macOSIconSet},
    SetButton{&Ui::MainScreen::btnAppleWatch, &DragView::btnAppleWatch, appleWatchIconSet},
    SetButton{&Ui::MainScreen::btnWindows10, &DragView::btnWindows10, windows10IconSet},
};

using Field = FormField* Ui_CustomScreen::*;

// The fields of a row: name, left, right.
constexpr std::array<std::array<Field, 3>, 8> formFields{{
    {&Ui::CustomScreen::txtFileName1, &Ui::CustomScreen::txtFileName1PixelLeft,
     &Ui::CustomScreen::txtFileName1PixelRight},
    {&Ui::CustomScreen::txtFileName2, &Ui::CustomScreen::txtFileName2PixelLeft,
     &Ui::CustomScreen::txtFileName2PixelRight},
    {&Ui::CustomScreen::txtFileName3, &Ui::CustomScreen::txtFileName3PixelLeft,
     &Ui::CustomScreen::txtFileName3PixelRight},
    {&Ui::CustomScreen::txtFileName4, &Ui::CustomScreen::txtFileName4PixelLeft,
     &Ui::CustomScreen::txtFileName4PixelRight},
    {&Ui::CustomScreen::txtFileName5, &Ui::CustomScreen::txtFileName5PixelLeft,
     &Ui::CustomScreen::txtFileName5PixelRight},
    {&Ui::CustomScreen::txtFileName6, &Ui::CustomScreen::txtFileName6PixelLeft,
     &Ui::CustomScreen::txtFileName6PixelRight},
    {&Ui::CustomScreen::txtFileName7, &Ui::CustomScreen::txtFileName7PixelLeft,
     &Ui::CustomScreen::txtFileName7PixelRight},
    {&Ui::CustomScreen::txtFileName8, &Ui::CustomScreen::txtFileName8PixelLeft,
     &Ui::CustomScreen::txtFileName8PixelRight},
}};

void connectForm(const Ui::CustomScreen& widgets, CustomForm& form) {
  for (std::size_t row = 0; row < formFields.size(); ++row) {
    const auto& [name, left, right] = formFields[row];
    form.rows[row].name.connect(*(widgets.*name));
    form.rows[row].left.connect(*(widgets.*left));
    form.rows[row].right.connect(*(widgets.*right));
    for (const Field field : formFields[row]) {
      QObject::connect(widgets.*field, &QLineEdit::returnPressed, widgets.btnCustom,
                       [button = widgets.btnCustom] { button->click(); });
    }
  }
}

QString subtitleOf(const IconSet& set) {
  return QCoreApplication::translate("MainScreen", "%1 images").arg(set.names.size());
}

}  // namespace

struct Screens::Main {
  explicit Main(Platform& platform) : view(platform, prepared(*this)) {
    view.outlets.imageView.connect(*widgets.imageView);
    view.outlets.btniOS.connect(*widgets.btniOS);
    view.outlets.btnMacOS.connect(*widgets.btnMacOS);
    view.outlets.btnAppleWatch.connect(*widgets.btnAppleWatch);
    view.outlets.btnWindows10.connect(*widgets.btnWindows10);
    view.outlets.btnCustom.connect(*widgets.btnCustom);
    for (const auto& [button, action, set] : setButtons) {
      (widgets.*button)->setSubtitle(subtitleOf(set));
      QObject::connect(widgets.*button, &QPushButton::clicked, screen,
                       [this, run = action] { (view.*run)(); });
    }
    widgets.imageView->setScaler(resizedImage);
    widgets.dropArea->setDestination(view.dropTarget, platform.pictures);
    view.dropTarget.awakeFromNib();
    controller.viewDidLoad();
  }
  static DropArea& prepared(Main& main) {
    main.widgets.setupUi(main.screen);
    return *main.widgets.dropArea;
  }

  Screen* screen = new Screen;
  Ui::MainScreen widgets;
  ViewController controller;
  DragView view;
};

struct Screens::Custom {
  explicit Custom(Platform& platform) : view(platform, prepared(*this)) {
    view.outlets.imageView.connect(*widgets.imageView);
    view.outlets.btnCustom.connect(*widgets.btnCustom);
    connectForm(widgets, view.outlets.form);
    QObject::connect(widgets.btnCustom, &QPushButton::clicked, screen,
                     [this] { view.btnResizeCustomImages(); });
    widgets.imageView->setScaler(resizedImage);
    widgets.dropArea->setDestination(view.dropTarget, platform.pictures);
    view.dropTarget.awakeFromNib();
    controller.viewDidLoad();
  }
  static DropArea& prepared(Custom& custom) {
    custom.widgets.setupUi(custom.screen);
    return *custom.widgets.dropArea;
  }

  Screen* screen = new Screen;
  Ui::CustomScreen widgets;
  CustomVC controller;
  CustomDragView view;
};

Screens::Screens(Platform& platform)
    : main_(std::make_unique<Main>(platform)),
      custom_(std::make_unique<Custom>(platform)),
      window_(std::make_unique<MainWindow>(main_->screen, custom_->screen)) {}

Screens::~Screens() = default;

}  // namespace tessarine
