#include <gmock/gmock.h>

#include "tests/platform/posix/arrangements.h"
#include "tests/support/in_child.h"

// No name and no arrangement of links reaches outside the granted folder, whoever runs the program
// and whichever way the path is resolved.
namespace tessarine::testing {

using ::testing::AllOf;
using ::testing::Combine;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::Values;
using ::testing::ValuesIn;

namespace {

constexpr const char* text = "the new bytes";

class Containment : public ::testing::TestWithParam<Combination> {
 protected:
  void SetUp() override {
    const auto& [arrangement, resolution, operation, writer] = GetParam();
    if (!isRoot() && (arrangement.needsRoot || writer == Writer::ordinaryUser)) {
      GTEST_SKIP() << "only root can arrange this";
    }
    if (arrangement.arrange) arrangement.arrange(place.granted());
    if (writer == Writer::ordinaryUser) place.giveAway();
  }

  std::string writeIt() {
    const auto& [arrangement, resolution, operation, writer] = GetParam();
    const std::string folder = place.granted();
    const std::string path = folder + "/" + arrangement.name;
    return inChild([&, resolved = resolution, how = operation, who = writer] {
      if (who == Writer::ordinaryUser) becomeOrdinaryUser();
      return write(how, resolved, folder, path, text);
    });
  }

  Neighbourhood place;
};

}  // namespace

class Refused : public Containment {};

TEST_P(Refused, TouchesNothing) {
  const std::string before = place.outside();
  const std::string beforeInside = snapshot(place.granted());
  const std::string description = writeIt();
  EXPECT_THAT(description,
              AllOf(HasSubstr(" could not be written: "), EndsWith(std::get<0>(GetParam()).cause)));
  EXPECT_THAT(description, Not(HasSubstr("\n")));
  EXPECT_EQ(place.outside(), before);
  EXPECT_EQ(snapshot(place.granted()), beforeInside);
}

class Written : public Containment {};

TEST_P(Written, StaysInside) {
  const auto& arrangement = std::get<0>(GetParam());
  const std::string before = place.outside();
  EXPECT_EQ(writeIt(), "");
  EXPECT_EQ(place.outside(), before);
  // An atomic write puts a file in the place of the link itself.
  const bool atLink = std::get<2>(GetParam()) == Operation::atomic;
  const std::string& named =
      arrangement.place.empty() || atLink ? arrangement.name : arrangement.place;
  EXPECT_EQ(contentsOf(place.granted().string() + "/" + named), text);
}

// Its other name, too, shows what is written in place.
TEST(HardLink, IsAFileOfTheFolder) {
  for (const Resolution resolution : {Resolution::kernel, Resolution::walked}) {
    const Neighbourhood place;
    const auto secret = place.root() / "outside/secret";
    const auto shared = place.granted() / "x.png";
    std::filesystem::create_hard_link(secret, shared);
    EXPECT_EQ(write(Operation::inPlace, resolution, place.granted(), shared, text), "");
    EXPECT_EQ(contentsOf(secret), text);
    EXPECT_EQ(write(Operation::atomic, resolution, place.granted(), shared, "other bytes"), "");
    EXPECT_EQ(contentsOf(secret), text);
    EXPECT_EQ(contentsOf(shared), "other bytes");
  }
}

auto everyWay(const std::vector<Arrangement>& rows) {
  return Combine(ValuesIn(rows), Values(Resolution::kernel, Resolution::walked),
                 Values(Operation::inPlace, Operation::atomic),
                 Values(Writer::asStarted, Writer::ordinaryUser));
}

INSTANTIATE_TEST_SUITE_P(Names, Refused, everyWay(namesThatLeadOut()), labelOf);
INSTANTIATE_TEST_SUITE_P(Links, Refused, everyWay(linksThatLeadOut()), labelOf);
INSTANTIATE_TEST_SUITE_P(InTheWay, Refused, everyWay(thingsInTheWay()), labelOf);
INSTANTIATE_TEST_SUITE_P(Names, Written, everyWay(namesThatStay()), labelOf);
INSTANTIATE_TEST_SUITE_P(Links, Written, everyWay(linksThatStay()), labelOf);

}  // namespace tessarine::testing
