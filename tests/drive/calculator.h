// The calculator that a script acts on.
#pragma once

#include <utility>

#include "DepCalc/dep_calc_cont.h"
#include "controls/stage.h"

namespace depcalc::drive {

/// Made, it has not started up.
class Calculator {
 public:
  virtual ~Calculator() = default;

  [[nodiscard]] virtual Stage& stage() = 0;
  [[nodiscard]] virtual DepCalcCont& container() = 0;
  virtual void start() = 0;
};

/// The control model by itself.
class ModelCalculator final : public Calculator {
 public:
  ModelCalculator(Site& site, Trace& trace, ScreenMaker& screens, CreateHost create_host)
      : stage_(site, &trace), container_(stage_, screens, std::move(create_host)) {}

  Stage& stage() override { return stage_; }
  DepCalcCont& container() override { return container_; }
  void start() override { container_.DepCalcCont_Initialize(); }

 private:
  Stage stage_;
  DepCalcCont container_;
};

}  // namespace depcalc::drive
