// The rules of the entry form's fields, one function a field: text in, accepted or refused out.
// The form and the `depcalc` command both go through these.
//
// A refusal is a value. What throws is a run-time error: a text that cannot be read where the
// rule does not check it (an empty date, a salvage value that is no number beside a checked
// basis). The form ends its handler quietly there.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "entry/messages.h"
#include "values/currency.h"
#include "values/date.h"

namespace depcalc {

/// A field as its rule sees it. Most checks are made only where the text has changed since it
/// was last stored; the store is made every time.
struct FieldInput {
  std::string_view text;
  bool changed = true;
};

/// What goes into the record. An empty field stays empty, whatever value stands for it there.
template <typename Value>
struct Accepted {
  explicit Accepted(Value what, bool is_blank = false) : value(std::move(what)), blank(is_blank) {}

  Value value;
  bool blank;
};

/// What the field shows from now on: mm/dd/yyyy, a whole number, #,##0.00, the text itself.
std::string shownText(const Accepted<Date>& field);
std::string shownText(const Accepted<double>& field);
std::string shownText(const Accepted<Currency>& field);
std::string shownText(const Accepted<std::string>& field);

struct Rejected {
  FieldMessage message;

  friend constexpr bool operator==(Rejected, Rejected) = default;
};

template <typename Value>
using Checked = std::variant<Accepted<Value>, Rejected>;

// --- Placed-in-service date ---------------------------------------------------------------

/// Brings a changed text that is no date yet, or has dots in it, into the form mm/dd/yyyy:
/// 3.15.2020, 3/15 (of this year), 03152020, 0315. Every other text comes back as it is. A text
/// with a slash or dot that does not fall into three parts is error 9.
Checked<std::string> normalisedDateText(const FieldInput& field, Date today);

/// Refuses a date more than 50 years before or after today; exactly 50 years is accepted.
std::optional<Rejected> refusedByDateLimit(Date date, Date today);

enum class DateLimit { fifty_years, none };

/// Both of the above, and the date as mm/dd/yyyy. The limit holds for an unchanged text too. A
/// text that cannot be read as a date, the empty one included, is error 13.
Checked<Date> placedInServiceRule(const FieldInput& field, Date today,
                                  DateLimit limit = DateLimit::fifty_years);

// --- Useful life, basis, salvage value, production capacity --------------------------------

enum class NumericField { life, basis, salvage, capacity };

/// The check on every change of a numeric field: refuses a text that is neither empty nor a
/// number, a lone "-" included.
std::optional<Rejected> refusedWhileTyping(NumericField field, std::string_view text);

/// Whole years from 1 to 50. The range is checked before rounding (halves to even): 50.4 is
/// refused, 2.5 becomes 2. An empty text is 0.
Checked<double> usefulLifeRule(const FieldInput& field);

/// Above 0 and up to 9,999,999.99, not below the salvage value (equal is accepted). The value is
/// the amount as shown, in cents. An empty text is 0.
Checked<Currency> basisRule(const FieldInput& field, std::string_view salvage_text);

/// From 0 to 9,999,999.99, not above the basis (equal is accepted). As shown, in cents. An empty
/// text is 0.
Checked<Currency> salvageRule(const FieldInput& field, std::string_view basis_text);

/// 0 or more, shown as a whole number; the value is the text as shown, thousands separators
/// included. An empty text is stored as "" where it has just been emptied and as "0" where it
/// was empty before.
Checked<std::string> productionCapacityRule(const FieldInput& field);

// --- Free texts ----------------------------------------------------------------------------

inline constexpr std::size_t most_text_characters = 20;

/// What a key does in a free-text field.
struct KeyAnswer {
  bool beep = false;
  bool discard = false;

  friend constexpr bool operator==(KeyAnswer, KeyAnswer) = default;
};

/// In a field that holds 20 characters or more every key beeps, and those from blank to tilde
/// are discarded. Backspace, control keys and characters above 126 go through.
KeyAnswer limitedKey(std::string_view text, char32_t character);

}  // namespace depcalc
