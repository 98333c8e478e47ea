#include "platform/fatal_stop.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "platform/outlet.h"

namespace tessarine {
namespace {

const auto stops = ::testing::KilledBySignal(SIGABRT);

TEST(RequireDeathTest, StopsSilentlyAtAConditionThatDoesNotHold) {
  const auto requireBoth = [] {
    require(true);
    std::fputs("passed", stderr);
    require(false);
  };
  EXPECT_EXIT(requireBoth(), stops, "^passed$");
}

TEST(Required, IsTheValue) {
  EXPECT_EQ(required(std::optional<int>(7)), 7);
}

TEST(RequiredDeathTest, StopsSilentlyWithoutAValue) {
  EXPECT_EXIT(static_cast<void>(required(std::optional<int>())), stops, "^$");
}

TEST(Outlet, ReachesItsControl) {
  int control = 1;
  Outlet<int> outlet;
  outlet.connect(control);
  *outlet = 2;
  EXPECT_EQ(control, 2);
}

TEST(OutletDeathTest, StopsSilentlyWhenUnconnected) {
  const Outlet<std::string> outlet;
  EXPECT_EXIT(static_cast<void>(outlet->size()), stops, "^$");
  EXPECT_EXIT(static_cast<void>(*outlet), stops, "^$");
}

}  // namespace
}  // namespace tessarine
