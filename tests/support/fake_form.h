#pragma once

#include <array>
#include <deque>
#include <string>

#include "custom/custom_form.h"
#include "tests/support/fake_controls.h"

namespace tessarine::testing {

using RowTexts = std::array<std::string, 3>;

// A form of 24 fields named "name 1", "left 1", "right 1" to "right 8".
class FakeForm {
 public:
  explicit FakeForm(Journal& journal);

  // Fills row 1 to 8 with a name, a width and a height.
  void fill(std::size_t row, const RowTexts& texts);

  CustomForm form;

 private:
  std::deque<FakeTextField> fields_;
};

}  // namespace tessarine::testing
