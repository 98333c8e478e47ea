#include "headless/argument_form.h"

#include <gtest/gtest.h>

namespace tessarine::testing {

TEST(ArgumentForm, HoldsTheRowsFromTheFirstOnAndLeavesTheOthersEmpty) {
  const ArgumentForm arguments({{"one", "1", "2"}, {"two", "3", "4"}});
  const auto& rows = arguments.form().rows;
  EXPECT_EQ(rows[0].name->stringValue(), "one");
  EXPECT_EQ(rows[1].name->stringValue(), "two");
  EXPECT_EQ(rows[1].left->stringValue(), "3");
  EXPECT_EQ(rows[1].right->stringValue(), "4");
  for (std::size_t row = 2; row < rows.size(); ++row) {
    for (const auto* field : {&rows[row].name, &rows[row].left, &rows[row].right}) {
      EXPECT_EQ((*field)->stringValue(), "");
    }
  }
}

TEST(ArgumentForm, HoldsAFullForm) {
  const std::vector<CutCustom::Row> texts(CutCustom::maximumRows, {"name", "64", "32"});
  const ArgumentForm arguments(texts);
  EXPECT_EQ(arguments.form().rows.back().name->stringValue(), "name");
  EXPECT_EQ(arguments.form().rows.back().left->stringValue(), "64");
  EXPECT_EQ(arguments.form().rows.back().right->stringValue(), "32");
}

}  // namespace tessarine::testing
