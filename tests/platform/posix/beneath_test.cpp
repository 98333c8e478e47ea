#include "platform/posix/beneath.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include "tests/platform/posix/system_calls.h"
#include "tests/support/temporary_folder.h"

namespace tessarine::testing {

namespace {

class Beneath : public ::testing::TestWithParam<int> {
 protected:
  Beneath() { systemCalls.kernelCheckError = GetParam(); }
  ~Beneath() override { systemCalls = {}; }

  Opened opened(const std::string& path) const {
    return openBeneath(folder, path, O_WRONLY | O_CREAT, 0666, Resolution::kernel);
  }

  TemporaryFolder place;
  const Descriptor folder{::open(place.path().c_str(), O_PATH | O_DIRECTORY)};
};

std::string nameOfError(const ::testing::TestParamInfo<int>& row) {
  return ::strerrorname_np(row.param);
}

}  // namespace

class WithoutTheKernelsCheck : public Beneath {};

TEST_P(WithoutTheKernelsCheck, OpensBeneathAndNowhereElse) {
  EXPECT_EQ(opened("x.png").error, 0);
  EXPECT_TRUE(std::filesystem::exists(place.path() / "x.png"));
  EXPECT_EQ(opened("../x.png").error, EXDEV);
}

INSTANTIATE_TEST_SUITE_P(Errors, WithoutTheKernelsCheck, ::testing::Values(ENOSYS, EPERM, EAGAIN),
                         nameOfError);

class RefusedByTheKernel : public Beneath {};

TEST_P(RefusedByTheKernel, IsNotTriedAgain) {
  EXPECT_EQ(opened("x.png").error, GetParam());
  EXPECT_TRUE(std::filesystem::is_empty(place.path()));
}

INSTANTIATE_TEST_SUITE_P(Errors, RefusedByTheKernel, ::testing::Values(EXDEV, EACCES, ENOSPC),
                         nameOfError);

}  // namespace tessarine::testing
