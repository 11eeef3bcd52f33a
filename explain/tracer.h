// The listener that keeps what the rules tell.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/told_steps.h"
#include "explain/traced.h"

namespace depcalc {

/// A step as it was told.
struct ToldStep {
  RuleStep step;
  StepAbout about;
  std::optional<std::int32_t> year;  ///< none for what all fiscal years have in common
  Formula formula;
  std::string result{};        ///< for programs
  std::string shown_result{};  ///< for people
  Currency money{};            ///< the result of a step that is money
  bool is_amount = false;      ///< whether the year's amount is its result
};

/// A told step's result is a number from then on: what is calculated with it says the number, and
/// where it comes from.
class Tracer : public OneAsset {
 public:
  using Number = TracedNumber;
  using Money = TracedMoney;
  using Amount = Currency&;

  Number tell(RuleStep step, const Number& value, StepAbout about = {});
  Money tell(RuleStep step, const Money& value, StepAbout about = {});
  Number atMost(RuleStep step, const Number& value, const Number& most);
  Money atMost(RuleStep step, const Money& value, const Money& most);
  [[nodiscard]] Number recall(RuleStep step, double value) const;
  Money take(Currency& amount, RuleStep step, const Money& value);
  void beginYear(std::int32_t index) { year_ = index; }

  [[nodiscard]] const std::vector<ToldStep>& steps() const { return steps_; }
  /// The step that the amount of fiscal year `index` came from; none where nothing was taken.
  [[nodiscard]] std::optional<std::size_t> amountOf(std::int32_t index) const;
  /// That amount, to calculate on with.
  [[nodiscard]] Money moneyOf(std::size_t step) const;

 private:
  Formula add(RuleStep step, StepAbout about, const Formula& made, Formula result);
  [[nodiscard]] std::optional<std::size_t> toldInCommon(RuleStep step, const Formula& made) const;
  void addSources(const Formula& formula);
  [[nodiscard]] bool justTold(const Money& value) const;

  std::optional<std::int32_t> year_;
  std::vector<ToldStep> steps_;
};

static_assert(Listener<Tracer>);

}  // namespace depcalc
