#include "explain/step_words.h"

#include <array>

#include "engine/convention.h"
#include "engine/method.h"
#include "values/display_format.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

constexpr double days_of_leap_year = 366;

std::string fromTo(const StepAbout& about) {
  return about.from.toText() + " to " + about.to.toText();
}

/// The day of the disposal itself does not count.
std::string heldUntil(const StepAbout& about) {
  return about.from.toText() + " until " + about.to.toText();
}

bool isDeclining(const Telling& telling) {
  return telling.method == method_double_declining_balance;
}

std::string assetYear(std::int32_t number) { return "asset year " + std::to_string(number); }

std::string fiscalYear(const Telling& telling, std::int32_t index) {
  return "FY" + std::to_string(telling.first_year + index);
}

std::string toCents(std::string words, bool rounded) {
  return rounded ? words + ", rounded to cents" : words;
}

/// A leap day makes the year longer.
std::string daysOfYear(const ToldStep& step) {
  const bool leap = step.result == numberToText(days_of_leap_year);
  return std::string("Days of that fiscal year") + (leap ? ", February 29 among them" : "");
}

std::string firstShare(const ToldStep& step) {
  const std::string name = conventionWords(step.about.number);
  const std::string share = ": share of " + assetYear(1);
  switch (step.about.number) {
    case cdepfullyear:
      return name + ": the fiscal year takes a whole asset year";
    case cdepHalfYear:
      return name + share;
    case cdepFullMonth:
    case cdepHalfMonth:
    case cdepActualDays:
      return name + " from " + step.about.from.toText() + share;
    default:
      return name + " is none of the five: no share in the first fiscal year";
  }
}

std::string shareHeldWords(const ToldStep& step) {
  const std::string name = conventionWords(step.about.number);
  switch (step.about.number) {
    case cdepfullyear:
      return name + ": nothing in the fiscal year of disposal";
    case cdepHalfYear:
      return name + ": half of the fiscal year of disposal";
    default:
      return name + ": share of the fiscal year held";
  }
}

/// Up to the year before, or in the middle of this one.
std::string takenWords(const ToldStep& step, const Telling& telling) {
  if (step.year && *step.year < telling.index) {
    return "Taken by the end of " + fiscalYear(telling, *step.year);
  }
  return isDeclining(telling) ? "Taken so far" : "Taken in all years, as rounded";
}

std::string startOfAssetYear(const ToldStep& step, const Telling& telling) {
  const bool half = telling.asset.convention == cdepHalfYear;
  return toCents((half ? "First half of " : "Beginning of ") + assetYear(step.about.number),
                 isDeclining(telling));
}

std::string bookValue(const ToldStep& step) {
  return step.about.number == 1 ? "Book value at the start: the whole basis"
                                : "Book value, start of " + assetYear(step.about.number);
}

std::string unitsAtRate(const Telling& telling) {
  const auto units = telling.asset.units.find(telling.index);
  return unitsText(units == telling.asset.units.end() ? 0.0 : units->second) +
         " units at the rate, rounded to cents";
}

/// Words that say the same of every asset.
struct FixedWords {
  RuleStep step;
  std::string_view words;
};

constexpr std::array fixed_words{
    FixedWords{RuleStep::whole_months, "To the nearest whole month"},
    FixedWords{RuleStep::whole_year_at_most, "A whole year at most"},
    FixedWords{RuleStep::base, "Basis less salvage value"},
    FixedWords{RuleStep::whole_year, "A whole year, rounded to cents"},
    FixedWords{RuleStep::end_of_last_year, "What is left of the last asset year"},
    FixedWords{RuleStep::whole_digits, "To the nearest whole number of digits"},
    FixedWords{RuleStep::rate, "Rate: twice the straight line's"},
    FixedWords{RuleStep::left, "Left to take above salvage value"},
    FixedWords{RuleStep::within_what_is_left, "That much is left, so it is taken"},
    FixedWords{RuleStep::only_what_is_left, "More than is left: only what is left is taken"},
    FixedWords{RuleStep::rest_and_what_is_left, "More than is left: what is left is added"},
    FixedWords{RuleStep::no_rate, "No production capacity was entered: there is no rate"},
    FixedWords{RuleStep::units_left, "Left to take"},
    FixedWords{RuleStep::units_taken, "Depreciation of the year"},
    FixedWords{RuleStep::share_covered, "Share of that fiscal year which its amount covers"},
    FixedWords{RuleStep::share_of_amount, "Share held of the year's amount, rounded to cents"},
    FixedWords{RuleStep::no_more_than_whole, "No more than the year's whole amount"},
    FixedWords{RuleStep::gone_at_once,
               "In service and disposed of in one fiscal year: nothing is taken"},
    FixedWords{RuleStep::taken_until_disposal, "Taken until the disposal"},
};

std::string fixedWords(RuleStep step) {
  for (const FixedWords& fixed : fixed_words) {
    if (fixed.step == step) return std::string(fixed.words);
  }
  return {};
}

std::string datesWords(const ToldStep& step) {
  const StepAbout& about = step.about;
  switch (step.step) {
    case RuleStep::first_fiscal_year:
      return "Placed in service " + about.from.toText() + ", fiscal year to " + about.to.toText();
    case RuleStep::months_counted:
      return "Days from " + fromTo(about) + ", in months of 30";
    case RuleStep::days_in_service:
      return "Days in service, " + fromTo(about) + ", both counted";
    case RuleStep::days_of_fiscal_year:
    case RuleStep::days_of_that_year:
      return daysOfYear(step);
    case RuleStep::year_of_disposal:
      return "Disposed of " + about.from.toText() + ", in fiscal year";
    case RuleStep::months_held:
      return "Months held, " + heldUntil(about);
    case RuleStep::days_held:
      return "Days held, " + heldUntil(about);
    default:
      return {};
  }
}

std::string scheduleWords(const ToldStep& step, const Telling& telling) {
  switch (step.step) {
    case RuleStep::first_share:
      return firstShare(step);
    case RuleStep::share_left:
      return conventionWords(telling.asset.convention) + ": share left of " +
             assetYear(telling.index);
    case RuleStep::annual:
      return "Spread evenly over " + yearsText(telling.asset.life);
    case RuleStep::first_year:
      return "Share of " + assetYear(1) + ", rounded to cents";
    case RuleStep::sum_of_digits:
      return "Digits of " + yearsText(telling.asset.life);
    case RuleStep::asset_year:
      return "Asset year " + std::to_string(step.about.number);
    case RuleStep::book_value:
      return bookValue(step);
    case RuleStep::rest_of_asset_year:
      return toCents("Rest of " + assetYear(step.about.number), isDeclining(telling));
    case RuleStep::start_of_asset_year:
      return startOfAssetYear(step, telling);
    case RuleStep::sum_of_shares:
      return toCents("Sum", !isDeclining(telling));
    case RuleStep::taken:
      return takenWords(step, telling);
    case RuleStep::difference:
      return step.money < Currency() ? "Too much by rounding" : "Left over by rounding";
    case RuleStep::settled:
      return isDeclining(telling) ? "With what goes below salvage value given back"
                                  : "With the difference that rounding made";
    default:
      return {};
  }
}

std::string unitsWords(const ToldStep& step, const Telling& telling) {
  switch (step.step) {
    case RuleStep::rate_per_unit:
      return "Spread over a capacity of " + unitsText(telling.asset.capacity) +
             " units: rate per unit";
    case RuleStep::amount_of_units:
      return unitsAtRate(telling);
    case RuleStep::no_units:
      return telling.asset.basis < telling.asset.salvage ? "Nothing is left to take"
                                                         : "Nothing to take for these units";
    case RuleStep::share_held:
      return shareHeldWords(step);
    case RuleStep::limited_share_held:
      return step.result == "0" ? "Not less than nothing" : "A whole year at most";
    default:
      return {};
  }
}

}  // namespace

std::string conventionWords(std::int32_t convention) {
  if (convention < 0 || convention >= static_cast<std::int32_t>(convention_names.size())) {
    return "Convention " + std::to_string(convention);
  }
  return std::string(convention_names[static_cast<std::size_t>(convention)]);
}

std::string yearsText(double life) {
  return numberToText(life) + (life == 1.0 ? " year" : " years");
}

std::string unitsText(double units) { return formatCutShort(units, 0, 6); }

std::string wordsOf(const ToldStep& step, const Telling& telling) {
  if (isUnitsOfProduction(telling.method) && step.year && *step.year < telling.index) {
    return (step.is_amount ? "Taken in FY" : "Left to take before FY") + std::to_string(*step.year);
  }
  for (std::string words : {fixedWords(step.step), datesWords(step), scheduleWords(step, telling),
                            unitsWords(step, telling)}) {
    if (!words.empty()) return words;
  }
  return {};
}

}  // namespace depcalc
