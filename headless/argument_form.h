#pragma once

#include <list>
#include <string>
#include <utility>

#include "custom/custom_form.h"
#include "headless/command_line.h"

namespace tessarine {

// A field of the form whose text stands on the command line.
class ArgumentField final : public TextField {
 public:
  explicit ArgumentField(std::string text) : text_(std::move(text)) {}

  std::string stringValue() override { return text_; }
  void becomeFirstResponder() override {}

 private:
  std::string text_;
};

// The form of eight rows, filled from the first on with the rows of the command line.
class ArgumentForm {
 public:
  explicit ArgumentForm(const std::vector<CutCustom::Row>& rows) {
    for (std::size_t i = 0; i < form_.rows.size(); ++i) {
      const CutCustom::Row row = i < rows.size() ? rows[i] : CutCustom::Row{};
      form_.rows[i].name.connect(fields_.emplace_back(row.name));
      form_.rows[i].left.connect(fields_.emplace_back(row.width));
      form_.rows[i].right.connect(fields_.emplace_back(row.height));
    }
  }
  ArgumentForm(const ArgumentForm&) = delete;
  ArgumentForm& operator=(const ArgumentForm&) = delete;

  const CustomForm& form() const { return form_; }

 private:
  // A list, so that the fields stay where the outlets found them.
  std::list<ArgumentField> fields_;
  CustomForm form_;
};

}  // namespace tessarine
