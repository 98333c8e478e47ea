#include "output/source_rows.h"

#include <gtest/gtest.h>

namespace tessarine {
namespace {

struct Scaling {
  const char* name;
  PixelSize source;
  PixelSize size;
  int halvings;
};

class Halvings : public ::testing::TestWithParam<Scaling> {};

TEST_P(Halvings, AreMadeOnlyWhereTheyAreNotSeen) {
  const auto& [name, source, size, halvings] = GetParam();
  EXPECT_EQ(SourceRows::halvings(source, size), halvings);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, Halvings,
    ::testing::Values(Scaling{"Large", {4096, 4096}, {128, 128}, 1},
                      Scaling{"NotLarge", {2048, 2048}, {16, 16}, 0},
                      Scaling{"LittleShrunkInWidth", {4096, 4096}, {129, 16}, 0},
                      Scaling{"LittleShrunkInHeight", {4096, 4096}, {16, 129}, 0},
                      Scaling{"OddWidth", {4097, 4096}, {16, 16}, 0},
                      Scaling{"OddHeight", {4096, 4097}, {16, 16}, 0}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tessarine
