#include "tests/support/fake_form.h"

namespace tessarine::testing {

FakeForm::FakeForm(Journal& journal) {
  std::size_t number = 0;
  for (FormRow& row : form.rows) {
    const std::string suffix = " " + std::to_string(++number);
    row.name.connect(fields_.emplace_back(journal, "name" + suffix));
    row.left.connect(fields_.emplace_back(journal, "left" + suffix));
    row.right.connect(fields_.emplace_back(journal, "right" + suffix));
  }
}

void FakeForm::fill(std::size_t row, const RowTexts& texts) {
  for (std::size_t i = 0; i < texts.size(); ++i) fields_[(row - 1) * 3 + i].text = texts[i];
}

}  // namespace tessarine::testing
