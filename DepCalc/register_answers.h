// The container's answers to the register.
#pragma once

#include "register/dep_calc_view_events.h"

namespace depcalc {

class DepCalcCont;

class RegisterAnswers final : public DepCalcViewEvents {
 public:
  explicit RegisterAnswers(DepCalcCont& container) : container_(container) {}

  void GetCalcDepAll(CalculateDepArray& myCalcDep, std::int16_t& myStartYr, double& myNumYrs,
                     std::int16_t& myNumAssets) override;
  void ResizedDisplay() override;
  void SaveRecord(const CalculateDepPtr& myRecord) override;
  void ButtonClick(const std::string& myButton) override;
  void DeleteButtonClick(CalculateDepArray& myCalcDep, std::int16_t myIndex) override;
  void GetCalcDep(CalculateDepPtr& myCalcDep) override;
  void GetStartDir(std::string& myStartDir) override;
  void HelpClick(const std::string& myTopic) override;
  void ShowCover(bool showHide) override;

 private:
  void edit();

  DepCalcCont& container_;
};

}  // namespace depcalc
