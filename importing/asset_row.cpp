#include "importing/asset_row.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "changes/disposing.h"
#include "engine/convention.h"
#include "engine/method.h"
#include "host/fiscal_year.h"
#include "values/asset_limits.h"
#include "values/data_text.h"
#include "values/number_text.h"
#include "values/text.h"

namespace depcalc {
namespace {

/// Whether `text` has the shape of `pattern`, where 9 stands for a digit.
bool hasShape(std::string_view text, std::string_view pattern) {
  return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(),
                    [](char c, char p) { return p == '9' ? c >= '0' && c <= '9' : c == p; });
}

/// Whether a comma stands where no thousands are parted.
bool hasStrangeComma(std::string_view number) {
  for (std::size_t at = number.find(','); at != std::string_view::npos; at = number.find(',', at)) {
    const std::size_t behind = ++at;
    at = std::min(number.find_first_not_of("0123456789", behind), number.size());
    if (at - behind != 3) return true;
  }
  return false;
}

class RowReading {
 public:
  RowReading(const AssetColumns& columns, std::span<const CsvField> row, const AssetRules& rules,
             CalculateDep& asset, std::vector<RowProblem>& problems)
      : columns_(columns), row_(row), rules_(rules), asset_(asset), problems_(problems) {}

  void readAll() {
    asset_.AssetID(limitedText(AssetColumn::id));
    asset_.AssetName(limitedText(AssetColumn::name));
    asset_.ASerial(limitedText(AssetColumn::serial));
    asset_.ADept(limitedText(AssetColumn::department));
    const bool dated = readPlacedInService();
    readFiscalYearEnd();
    const bool lasting = readLife();
    readConvention();
    readSalvage(readBasis());
    readCapacity();
    readMethod();
    readDisposal(dated);
    if (dated && lasting && !(rules_.as_saved && hasNoMethod())) checkLastYear();
  }

 private:
  [[nodiscard]] std::string_view text(AssetColumn column) const {
    const CsvField* field = columns_.find(row_, column);
    return field != nullptr ? field->text : std::string_view();
  }

  [[nodiscard]] bool hasNoMethod() const { return trimmed(text(AssetColumn::method)).empty(); }

  bool refusedForComma(AssetColumn column) {
    if (!rules_.decimal_commas || !hasStrangeComma(trimmed(text(column)))) return false;
    refuse(column, "Please use a decimal point, as in 1250.50.");
    return true;
  }

  /// A 0 that stands there for what was never entered.
  [[nodiscard]] bool isSavedZero(AssetColumn column) const {
    return rules_.as_saved && hasNoMethod() && tryNumberFromText(text(column)) == 0.0;
  }

  void refuse(AssetColumn column, std::string_view message) {
    const CsvField& field = *columns_.find(row_, column);
    problems_.push_back({field.place.line, std::string(nameOf(column)), std::string(message),
                         std::string(field.text)});
  }

  /// The accepted value of a rule; a refusal becomes a problem and gives nothing.
  template <typename Value>
  const Value* take(AssetColumn column, const Checked<Value>& checked) {
    if (const auto* accepted = std::get_if<Accepted<Value>>(&checked)) return &accepted->value;
    refuse(column, messageOf(std::get<Rejected>(checked).message).text);
    return nullptr;
  }

  std::string limitedText(AssetColumn column) {
    const std::string_view free_text =
        rules_.raw_texts ? text(column) : unguardedText(text(column));
    // No text has more characters than bytes.
    if (!rules_.as_saved && free_text.size() > most_text_characters &&
        characterCount(free_text) > most_text_characters) {
      refuse(column, "Please enter at most 20 characters.");
    }
    return std::string(free_text);
  }

  bool readPlacedInService() {
    constexpr AssetColumn column = AssetColumn::placed_in_service;
    const std::string_view date_text = trimmed(text(column));
    if (date_text.empty()) {
      refuse(column, messageOf(FormMessage::start_date_missing).text);
      return false;
    }
    const auto date = looksLikeFileDate(date_text)
                          ? placedInServiceRule({date_text}, rules_.today, rules_.date_limit)
                          : Checked<Date>(Rejected{FieldMessage::date_not_valid});
    const Date* accepted = take(column, date);
    if (!accepted) return false;
    // Day 0 is no date, and is saved as today.
    if (rules_.as_saved && accepted->isNone()) {
      refuse(column, messageOf(FormMessage::start_date_missing).text);
    }
    asset_.AssetStartDate(*accepted);
    return true;
  }

  void readFiscalYearEnd() {
    const std::string_view end = trimmed(text(AssetColumn::fiscal_year_end));
    const Date usual = rules_.fiscal_year_end;
    if (end.empty()) return asset_.FYEnd(usual);
    const auto month_and_day = fiscalYearEndFromText(end);
    // A row that names the usual day gives the same record as one that names none.
    if (month_and_day && isSameDayOfYear(*month_and_day, usual)) return asset_.FYEnd(usual);
    if (const auto date = fiscalYearEndFromFile(end)) return asset_.FYEnd(*date);
    refuse(AssetColumn::fiscal_year_end, "Please enter a month and day, such as 12-31, or a date.");
  }

  bool readLife() {
    if (text(AssetColumn::life).empty()) {
      refuse(AssetColumn::life, messageOf(FormMessage::life_missing).text);
      return false;
    }
    if (refusedForComma(AssetColumn::life)) return false;
    if (isSavedZero(AssetColumn::life)) {
      asset_.DepRecovery(0);
      return true;
    }
    const auto checked = usefulLifeRule({text(AssetColumn::life)});
    const double* life = take(AssetColumn::life, checked);
    if (life != nullptr) asset_.DepRecovery(*life);
    return life != nullptr;
  }

  void readConvention() {
    const std::string_view name = trimmed(text(AssetColumn::convention));
    if (name.empty()) return asset_.DepConvention("0");
    if (const auto digit = conventionFromFile(name)) return asset_.DepConvention(*digit);
    refuse(AssetColumn::convention,
           "Please enter a number from 0 to 4, Full Year, Half Year, Full Month, Half Month or "
           "Actual Days.");
  }

  /// The text of a basis that was accepted, for the salvage value to be held against.
  std::string_view readBasis() {
    const std::string_view basis_text = text(AssetColumn::basis);
    if (basis_text.empty()) {
      refuse(AssetColumn::basis, messageOf(FormMessage::basis_missing).text);
      return {};
    }
    if (refusedForComma(AssetColumn::basis)) return {};
    if (isSavedZero(AssetColumn::basis)) {
      asset_.AssetBasis(Currency());
      return {};
    }
    const auto checked = basisRule({basis_text}, "");
    const Currency* basis = take(AssetColumn::basis, checked);
    if (basis == nullptr) return {};
    asset_.AssetBasis(*basis);
    return basis_text;
  }

  void readSalvage(std::string_view basis_text) {
    if (refusedForComma(AssetColumn::salvage)) return;
    const auto checked = salvageRule({text(AssetColumn::salvage)}, basis_text);
    if (const Currency* salvage = take(AssetColumn::salvage, checked))
      asset_.AssetSalvage(*salvage);
  }

  void readCapacity() {
    if (refusedForComma(AssetColumn::capacity)) return;
    const auto checked = productionCapacityRule({text(AssetColumn::capacity)});
    if (const std::string* capacity = take(AssetColumn::capacity, checked))
      asset_.AssetProdCap(*capacity);
  }

  void readMethod() {
    const std::string_view name = trimmed(text(AssetColumn::method));
    const auto* method = std::find_if(methods.begin(), methods.end(), [&](const Method& known) {
      return equalIgnoringCase(name, known.code);
    });
    if (name.empty() || method != methods.end()) {
      return asset_.DepMethod(name.empty() ? "" : std::string(method->code));
    }
    refuse(AssetColumn::method, "Please enter SL, SYD, DDB or UOP.");
  }

  /// Both or the date alone: what was obtained for an asset says that it is gone.
  void readDisposal(bool dated) {
    const bool anything_obtained = readProceeds();
    const std::string_view day = trimmed(text(AssetColumn::disposed));
    if (day.empty()) {
      if (!anything_obtained) return;
      return refuse(AssetColumn::proceeds, "Please enter the date of the disposal, too.");
    }
    const auto date = looksLikeFileDate(day) ? Date::tryFromText(day, rules_.today) : std::nullopt;
    if (!date || date->isNone()) {
      return refuse(AssetColumn::disposed, messageOf(FieldMessage::date_not_valid).text);
    }
    if (!dated) return;
    if (const auto refusal = refusedDisposalDate(*date, asset_.AssetStartDate(), rules_.today)) {
      return refuse(AssetColumn::disposed, *refusal);
    }
    asset_.AssetEndDate(*date);
  }

  /// Whether there are any.
  bool readProceeds() {
    asset_.ASalePrice("0");
    const std::string_view written = trimmed(text(AssetColumn::proceeds));
    if (written.empty() || refusedForComma(AssetColumn::proceeds)) return false;
    const auto proceeds = proceedsFrom(written);
    if (const auto* refusal = std::get_if<std::string>(&proceeds)) {
      refuse(AssetColumn::proceeds, *refusal);
      return false;
    }
    const Currency amount = std::get<Currency>(proceeds);
    asset_.ASalePrice(amount.toText());
    return amount != Currency();
  }

  /// Only without the limit of fifty years can a schedule reach the end of the calendar, where
  /// its fiscal years would have no dates.
  void checkLastYear() {
    if (endsWithinCalendar(asset_.AssetStartDate().year(), asset_.DepRecovery())) return;
    refuse(AssetColumn::placed_in_service, "The schedule would run beyond the year 9999.");
  }

  const AssetColumns& columns_;
  std::span<const CsvField> row_;
  const AssetRules& rules_;
  CalculateDep& asset_;
  std::vector<RowProblem>& problems_;
};

}  // namespace

std::optional<Date> fiscalYearEndFromText(std::string_view text) {
  if (!hasShape(text, "99-99")) return std::nullopt;
  // Any leap year will do, so that 02-29 exists.
  std::array<char, 10> dated{'2', '0', '0', '0', '-'};
  std::copy(text.begin(), text.end(), dated.begin() + 5);
  return Date::tryFromText({dated.data(), dated.size()}, Date());
}

std::optional<Date> fiscalYearEndFromFile(std::string_view text) {
  return looksLikeFileDate(text) ? Date::tryFromText(text, Date()) : fiscalYearEndFromText(text);
}

bool looksLikeFileDate(std::string_view text) {
  constexpr std::array<std::string_view, 5> shapes{"9999-99-99", "99/99/9999", "9/99/9999",
                                                   "99/9/9999", "9/9/9999"};
  return std::any_of(shapes.begin(), shapes.end(),
                     [&](std::string_view shape) { return hasShape(text, shape); });
}

void readAssetRow(const AssetColumns& columns, std::span<const CsvField> row,
                  const AssetRules& rules, CalculateDep& asset, std::vector<RowProblem>& problems) {
  RowReading(columns, row, rules, asset, problems).readAll();
}

}  // namespace depcalc
