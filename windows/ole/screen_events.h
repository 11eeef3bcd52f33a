// What the screens ask, put to whoever listens to a control.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>

#include "compare/dep_calc_display_ctl_events.h"
#include "entry/dep_calc_ctl_events.h"
#include "help/dep_calc_popup_events.h"
#include "register/dep_calc_view_events.h"
#include "windows/com/com_ptr.h"
#include "windows/com/connection_point.h"

namespace depcalc::windows {

/// Where a screen's events go: to the sinks of the point it is given, to nobody while it has none
/// or while its host keeps events away.
class EventOutlet {
 public:
  void connect(ComPtr<ConnectionPoint> point) { point_ = std::move(point); }
  /// As often as it was frozen, it must be let go; once more is no mistake.
  void freeze(bool frozen) { frozen_ = frozen ? frozen_ + 1 : std::max(frozen_ - 1, 0); }

 protected:
  /// `arguments` in their order.
  void raise(DISPID member, std::initializer_list<VARIANTARG> arguments = {}) const;
  void raiseText(DISPID member, const std::string& text) const;
  void raiseTextReference(DISPID member, const std::string& text) const;

 private:
  ComPtr<ConnectionPoint> point_;
  int frozen_ = 0;
};

class EntryOutlet final : public DepCalcCtlEvents, public EventOutlet {
 public:
  void GetCalcDep(CalculateDepPtr& myCalcDep, Date& myFYEnd) override;
  void ButtonClick(const std::string& myButton) override { raiseTextReference(2, myButton); }
  void HelpClick(const std::string& myTopic) override { raiseTextReference(3, myTopic); }
  void CheckMe(bool& myChanged) override;
};

class ComparisonOutlet final : public DepCalcDisplayCtlEvents, public EventOutlet {
 public:
  void GetCalcDep(CalculateDepPtr& myCalcDep) override;
  void ButtonClick(const std::string& myButton) override { raiseText(2, myButton); }
  void ResizedDisplay() override { raise(3); }
  void HelpClick(const std::string& myTopic) override { raiseText(4, myTopic); }
};

class RegisterOutlet final : public DepCalcViewEvents, public EventOutlet {
 public:
  void GetCalcDepAll(CalculateDepArray& myCalcDep, std::int16_t& myStartYr, double& myNumYrs,
                     std::int16_t& myNumAssets) override;
  void ResizedDisplay() override { raise(2); }
  void SaveRecord(const CalculateDepPtr& myRecord) override;
  void ButtonClick(const std::string& myButton) override { raiseText(4, myButton); }
  void DeleteButtonClick(CalculateDepArray& myCalcDep, std::int16_t myIndex) override;
  void GetCalcDep(CalculateDepPtr& myCalcDep) override;
  void GetStartDir(std::string& myStartDir) override;
  void HelpClick(const std::string& myTopic) override { raiseText(8, myTopic); }
  void ShowCover(bool showHide) override;
};

class PopupOutlet final : public DepCalcPopupEvents, public EventOutlet {
 public:
  void CloseMe() override { raise(1); }
  void GetHelpTopic(std::string& myHelpTopic) override;
  void ResizedDisplay() override { raise(3); }
  void OpenNewMe(const std::string& myHelpTopic) override { raiseTextReference(4, myHelpTopic); }
  void FrontMe() override { raise(5); }
};

}  // namespace depcalc::windows
