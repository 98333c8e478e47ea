#include <gtest/gtest.h>

#include <any>
#include <string>
#include <type_traits>

#include "app/app_delegate.h"
#include "app/custom_vc.h"
#include "app/view_controller.h"

namespace tessarine {
namespace {

TEST(AppDelegate, QuitsWithTheLastWindow) {
  AppDelegate delegate;
  delegate.applicationDidFinishLaunching();
  EXPECT_TRUE(delegate.applicationShouldTerminateAfterLastWindowClosed());
  delegate.applicationWillTerminate();
  EXPECT_TRUE(delegate.applicationShouldTerminateAfterLastWindowClosed());
}

TEST(ViewController, KeepsAnyRepresentedObjectOrNone) {
  ViewController controller;
  EXPECT_FALSE(controller.representedObject.has_value());
  controller.representedObject = std::string("document");
  controller.viewDidLoad();
  EXPECT_EQ(std::any_cast<std::string>(controller.representedObject), "document");
  controller.representedObject.reset();
  EXPECT_FALSE(controller.representedObject.has_value());
}

TEST(CustomVC, HoldsNothingOfItsOwn) {
  CustomVC controller;
  controller.viewDidLoad();
  EXPECT_TRUE(std::is_empty_v<CustomVC>);
}

}  // namespace
}  // namespace tessarine
