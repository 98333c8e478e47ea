#pragma once

#include <array>
#include <string_view>
#include <tuple>

#include "custom/custom_form.h"

namespace tessarine {

// What a rule asks of a field. A field of exactly one character is neither empty nor filled.
enum class Fill {
  any,     // not even read
  empty,   // no character
  filled,  // two characters or more
};

// A fault of a row: what its fields hold, the message for it, and the field that takes the focus.
struct ValidationRule {
  Fill name;
  Fill left;
  Fill right;
  std::string_view message;
  Outlet<TextField> FormRow::*focus;
};

// Stands for the row's number, 2 to 8, in the messages of `laterRowRules`.
inline constexpr char rowNumber = '#';

inline constexpr std::array firstRowRules{
    ValidationRule{Fill::empty, Fill::any, Fill::any,
                   "Please type in a name for \"AppIcon01\" text field and try again.",
                   &FormRow::name},
    ValidationRule{Fill::any, Fill::empty, Fill::any,
                   "Please type in a name for left pixel \"1024\" text field and try again.",
                   &FormRow::left},
    ValidationRule{Fill::any, Fill::any, Fill::empty,
                   "Please type in a name for right pixel \"1024\" text field and try again.",
                   &FormRow::right},
};

inline constexpr std::array laterRowRules{
    ValidationRule{
        Fill::empty, Fill::filled, Fill::empty,
        "Please type in a name for \"AppIcon0#\" and right \"1024\" text fields and try again.",
        &FormRow::name},
    ValidationRule{Fill::empty, Fill::empty, Fill::filled,
                   "Please type in a name for \"AppIcon0#\" and left \"1024\" text fields.",
                   &FormRow::name},
    ValidationRule{Fill::empty, Fill::filled, Fill::filled,
                   "Please type in a name for \"AppIcon0#\" text field.", &FormRow::name},
    ValidationRule{Fill::filled, Fill::empty, Fill::empty,
                   "Please type in a name for left \"1024\" and right \"1024\" text field.",
                   &FormRow::left},
    ValidationRule{Fill::filled, Fill::filled, Fill::empty,
                   "Please type in a name for right \"1024\" text field.", &FormRow::right},
    ValidationRule{Fill::filled, Fill::empty, Fill::filled,
                   "Please type in a name for left \"1024\" text field.", &FormRow::left},
};

static_assert(firstRowRules.size() +
                  (std::tuple_size_v<decltype(CustomForm::rows)> - 1) * laterRowRules.size() ==
              45);

}  // namespace tessarine
