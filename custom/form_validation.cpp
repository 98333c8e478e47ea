#include "custom/form_validation.h"

#include <algorithm>
#include <span>
#include <string>

#include "custom/text.h"
#include "custom/validation_rules.h"
#include "platform/alert.h"

namespace tessarine {

namespace {

bool fits(const Outlet<TextField>& field, Fill fill) {
  if (fill == Fill::any) return true;
  const std::size_t length = characterCount(field->stringValue());
  return fill == Fill::empty ? length < 1 : length >= 2;
}

bool matches(const ValidationRule& rule, const FormRow& row) {
  return fits(row.name, rule.name) && fits(row.left, rule.left) && fits(row.right, rule.right);
}

std::string messageFor(const ValidationRule& rule, std::size_t index) {
  std::string message(rule.message);
  std::ranges::replace(message, rowNumber, static_cast<char>('1' + index));
  return message;
}

}  // namespace

bool validateForm(Platform& platform, const CustomForm& form) {
  for (std::size_t index = 0; index < form.rows.size(); ++index) {
    const FormRow& row = form.rows[index];
    const auto rules = index == 0 ? std::span<const ValidationRule>(firstRowRules) : laterRowRules;
    for (const ValidationRule& rule : rules) {
      if (!matches(rule, row)) continue;
      platform.alert.runWarning(messageFor(rule, index), "OK");
      (row.*rule.focus)->becomeFirstResponder();
      return false;
    }
  }
  return true;
}

}  // namespace tessarine
