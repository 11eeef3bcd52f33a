// What the entry form tells its user.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace depcalc {

/// A message box: its title and its text, word for word.
struct Message {
  std::string_view title;
  std::string_view text;

  friend constexpr bool operator==(Message, Message) = default;
};

/// Everything that a field's rule can say to refuse a text.
enum class FieldMessage {
  date_not_valid,
  date_too_late,
  date_too_early,
  life_not_numeric,
  life_not_positive,
  life_too_long,
  basis_not_numeric,
  basis_negative,
  basis_zero,
  basis_too_large,
  basis_below_salvage,
  salvage_not_numeric,
  salvage_negative,
  salvage_too_large,
  salvage_above_basis,
  capacity_not_numeric,
  capacity_negative,
};

namespace titles {
inline constexpr std::string_view start_date = "Placed-in-service Date";
inline constexpr std::string_view fiscal_year = "End of Fiscal Year";
inline constexpr std::string_view life = "Useful Life";
inline constexpr std::string_view basis = "Basis";
inline constexpr std::string_view salvage = "Salvage Value";
inline constexpr std::string_view capacity = "Production Capacity";
inline constexpr std::string_view save_changes = "Save Changes";
}  // namespace titles

/// In the order of FieldMessage.
inline constexpr std::array field_messages{
    Message{titles::start_date, "Please enter a valid date."},
    Message{titles::start_date, "Please enter a date less than 50 years from today."},
    Message{titles::start_date, "Please enter a date less than 50 years ago."},
    Message{titles::life, "Please enter a valid number."},
    Message{titles::life, "The useful life must be a positive number."},
    Message{titles::life, "Please enter a number less than or equal to 50."},
    Message{titles::basis, "Please enter a valid number."},
    Message{titles::basis, "The basis must be a positive number."},
    Message{titles::basis, "The basis must be greater than 0."},
    Message{titles::basis, "The basis must be less than 10,000,000."},
    Message{titles::basis, "The basis of the asset must be greater than the salvage value."},
    Message{titles::salvage, "Please enter a valid number."},
    Message{titles::salvage, "The salvage value must be a positive number."},
    Message{titles::salvage, "The salvage value must be less than 10,000,000."},
    Message{titles::salvage, "The salvage value of the asset must be less than the basis."},
    Message{titles::capacity, "Please enter a valid number."},
    Message{titles::capacity, "The production capacity must be a positive number."},
};

/// What the form as a whole can ask for.
enum class FormMessage {
  start_date_missing,
  fiscal_year_missing,
  life_missing,
  basis_missing,
  salvage_missing,
  salvage_above_basis,
  start_date_missing_to_save,
};

/// In the order of FormMessage.
inline constexpr std::array form_messages{
    Message{titles::start_date, "Please enter the Placed-in-service Date."},
    Message{titles::fiscal_year, "Please enter the end of your fiscal year."},
    Message{titles::life, "Please enter the useful life."},
    Message{titles::basis, "Please enter the basis."},
    Message{titles::salvage, "Please enter the salvage value."},
    Message{titles::salvage, "The salvage value of the asset must be less than the basis."},
    // The small "date" is what users know from saving.
    Message{titles::start_date, "Please enter the Placed-in-service date."},
};

/// The question before unsaved changes are left, with Yes, No and Cancel.
inline constexpr Message save_changes_question{
    titles::save_changes,
    "You have not saved your changes to this asset. Would you like to save them now?"};

constexpr const Message& messageOf(FieldMessage message) {
  return field_messages[static_cast<std::size_t>(message)];
}
constexpr const Message& messageOf(FormMessage message) {
  return form_messages[static_cast<std::size_t>(message)];
}

}  // namespace depcalc
