#include "entry/field_rules.h"

#include <algorithm>

#include "values/asset_limits.h"
#include "values/display_format.h"
#include "values/number_text.h"
#include "values/rounding.h"
#include "values/text.h"
#include "values/written_number.h"

namespace depcalc {
namespace {

constexpr double years_from_today = 50;

constexpr std::size_t date_length = 7;  ///< the shortest date that carries its year: 3/5/202 and on

bool contains(std::string_view text, char c) { return text.find(c) != std::string_view::npos; }

/// Appends the current year to a text that is too short to have one of its own.
void completeYear(std::string& text, Date today) {
  if (characterCount(text) < date_length) text += std::to_string(today.year());
}

/// A date of parts: dots count as slashes.
std::string withSlashes(std::string_view text, Date today) {
  std::string s(text);
  std::replace(s.begin(), s.end(), '.', '/');
  if (characterCount(s) < date_length - 1) s += '/';
  completeYear(s, today);
  // The parts are taken by position, so there must be three of them.
  if (std::count(s.begin(), s.end(), '/') < 2) throw RuntimeError::subscriptOutOfRange();
  completeYear(s, today);
  return s;
}

/// A date without separators: month and day have two digits each.
std::string withSlashesInserted(std::string_view text, Date today) {
  std::string s(firstCharacters(text, 2));
  s.append("/").append(firstCharacters(afterCharacters(text, 2), 2));
  s.append("/").append(afterCharacters(text, 4));
  completeYear(s, today);
  return s;
}

/// Made where it is to stand: a value and a flag that are copied together right after they were
/// written make a processor wait.
template <typename Value>
Checked<Value> accepted(Value value, bool blank = false) {
  return Checked<Value>(std::in_place_index<0>, std::move(value), blank);
}

Checked<Currency> acceptedAmount(const WrittenNumber& amount) {
  return amount.isEmpty() ? accepted(Currency(), true) : accepted(amount.asShown());
}

std::optional<FieldMessage> lifeRefused(const WrittenNumber& life) {
  if (!life.isNumeric()) return FieldMessage::life_not_numeric;
  const double years = life.value();
  if (years < shortest_life) return FieldMessage::life_not_positive;
  if (years > longest_life) return FieldMessage::life_too_long;
  return std::nullopt;
}

std::optional<FieldMessage> basisRefused(const WrittenNumber& written,
                                         std::string_view salvage_text) {
  if (!written.isNumeric()) return FieldMessage::basis_not_numeric;
  const double basis = written.value();
  if (basis < 0) return FieldMessage::basis_negative;
  if (basis == 0) return FieldMessage::basis_zero;
  if (basis > largest_amount) return FieldMessage::basis_too_large;
  if (!salvage_text.empty() && written.exact() < Currency::fromText(salvage_text)) {
    return FieldMessage::basis_below_salvage;
  }
  return std::nullopt;
}

std::optional<FieldMessage> salvageRefused(const WrittenNumber& written,
                                           std::string_view basis_text) {
  if (!written.isNumeric()) return FieldMessage::salvage_not_numeric;
  const double salvage = written.value();
  if (salvage < 0) return FieldMessage::salvage_negative;
  if (salvage > largest_amount) return FieldMessage::salvage_too_large;
  if (!basis_text.empty() && written.exact() > Currency::fromText(basis_text)) {
    return FieldMessage::salvage_above_basis;
  }
  return std::nullopt;
}

std::optional<FieldMessage> capacityRefused(const WrittenNumber& capacity) {
  if (!capacity.isNumeric()) return FieldMessage::capacity_not_numeric;
  const double units = capacity.value();
  if (units < 0) return FieldMessage::capacity_negative;
  return std::nullopt;
}

bool mustCheck(const FieldInput& field) { return field.changed && !field.text.empty(); }

}  // namespace

std::string shownText(const Accepted<Date>& field) {
  return field.blank ? "" : field.value.toText();
}
std::string shownText(const Accepted<double>& field) {
  return field.blank ? "" : numberToText(field.value);
}
std::string shownText(const Accepted<Currency>& field) {
  return field.blank ? "" : formatMoney(field.value);
}
std::string shownText(const Accepted<std::string>& field) { return field.blank ? "" : field.value; }

Checked<std::string> normalisedDateText(const FieldInput& field, Date today) {
  const std::string_view text = field.text;
  const bool dots = contains(text, '.');
  if (!mustCheck(field) || (!dots && Date::isDate(text, today))) {
    return accepted(std::string(text));
  }
  const std::string candidate =
      dots || contains(text, '/') ? withSlashes(text, today) : withSlashesInserted(text, today);
  const auto date = Date::tryFromText(candidate, today);
  if (!date) return Rejected{FieldMessage::date_not_valid};
  return accepted(date->toText());
}

std::optional<Rejected> refusedByDateLimit(Date date, Date today) {
  if (date > today.plusYears(years_from_today)) return Rejected{FieldMessage::date_too_late};
  if (date < today.plusYears(-years_from_today)) return Rejected{FieldMessage::date_too_early};
  return std::nullopt;
}

Checked<Date> placedInServiceRule(const FieldInput& field, Date today, DateLimit limit) {
  // A date that reads as it stands, the usual case, needs no second look at its text.
  auto date = Date::tryFromText(field.text, today);
  if (!date || contains(field.text, '.')) {
    const auto normalised = normalisedDateText(field, today);
    if (const auto* refusal = std::get_if<Rejected>(&normalised)) return *refusal;
    date = Date::fromText(std::get<Accepted<std::string>>(normalised).value, today);
  }
  if (limit == DateLimit::fifty_years) {
    if (const auto refusal = refusedByDateLimit(*date, today)) return *refusal;
  }
  return accepted(*date);
}

std::optional<Rejected> refusedWhileTyping(NumericField field, std::string_view text) {
  static constexpr std::array messages{
      FieldMessage::life_not_numeric, FieldMessage::basis_not_numeric,
      FieldMessage::salvage_not_numeric, FieldMessage::capacity_not_numeric};
  if (text.empty() || isNumeric(text)) return std::nullopt;
  return Rejected{messages[static_cast<std::size_t>(field)]};
}

Checked<double> usefulLifeRule(const FieldInput& field) {
  const WrittenNumber life(field.text);
  if (mustCheck(field)) {
    if (const auto refusal = lifeRefused(life)) return Rejected{*refusal};
  }
  if (field.text.empty()) return accepted(0.0, true);
  return accepted(nearestEven(life.value()));
}

Checked<Currency> basisRule(const FieldInput& field, std::string_view salvage_text) {
  const WrittenNumber basis(field.text);
  if (mustCheck(field)) {
    if (const auto refusal = basisRefused(basis, salvage_text)) return Rejected{*refusal};
  }
  return acceptedAmount(basis);
}

Checked<Currency> salvageRule(const FieldInput& field, std::string_view basis_text) {
  const WrittenNumber salvage(field.text);
  if (mustCheck(field)) {
    if (const auto refusal = salvageRefused(salvage, basis_text)) return Rejected{*refusal};
  }
  return acceptedAmount(salvage);
}

Checked<std::string> productionCapacityRule(const FieldInput& field) {
  if (field.text.empty()) return accepted<std::string>(field.changed ? "" : "0", true);
  const WrittenNumber capacity(field.text);
  if (field.changed) {
    if (const auto refusal = capacityRefused(capacity)) return Rejected{*refusal};
  }
  return accepted(formatWhole(capacity.value()));
}

KeyAnswer limitedKey(std::string_view text, char32_t character) {
  if (characterCount(text) < most_text_characters) return {};
  return {.beep = true, .discard = character >= 32 && character <= 126};
}

}  // namespace depcalc
