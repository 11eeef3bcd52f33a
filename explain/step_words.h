// Steps in an accountant's words.
#pragma once

#include <string>

#include "explain/explanation.h"
#include "explain/tracer.h"

namespace depcalc {

/// What the words of a step depend on besides the step.
struct Telling {
  const ExplainedAsset& asset;
  std::string_view method;
  int first_year;      ///< the asset's first fiscal year
  std::int32_t index;  ///< of the fiscal year that is explained, 0 being the first
};

std::string wordsOf(const ToldStep& step, const Telling& telling);

/// "Half Year"; for a number that is none of the five, "Convention 7".
std::string conventionWords(std::int32_t convention);

/// "5 years", "1 year".
std::string yearsText(double life);

/// The units of a year as people write them: 12,125.5.
std::string unitsText(double units);

}  // namespace depcalc
