#include "output/source_rows.h"

#include <gtest/gtest.h>

namespace tessarine {
namespace {

struct Scaling {
  const char* name;
  PixelSize source;
  PixelSize size;
  bool halved;
};

class Halvings : public ::testing::TestWithParam<Scaling> {};

TEST_P(Halvings, AreMadeOnlyWhereTheyAreNotSeen) {
  const auto& [name, source, size, halved] = GetParam();
  EXPECT_EQ(SourceRows::mayBeHalved(source, size), halved);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, Halvings,
    ::testing::Values(Scaling{"Large", {4096, 4096}, {128, 128}, true},
                      Scaling{"NotLarge", {2048, 2048}, {16, 16}, false},
                      Scaling{"LittleShrunkInWidth", {4096, 4096}, {129, 16}, false},
                      Scaling{"LittleShrunkInHeight", {4096, 4096}, {16, 129}, false},
                      Scaling{"OddWidth", {4097, 4096}, {16, 16}, false},
                      Scaling{"OddHeight", {4096, 4097}, {16, 16}, false}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tessarine
