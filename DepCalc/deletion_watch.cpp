#include "DepCalc/deletion_watch.h"

#include <utility>

namespace depcalc {
namespace {

/// The asset that was taken out of the array, from 1. The only one is announced by index 1, with an
/// array of empty slots.
std::int32_t numberTakenOut(const CalculateDepArray& assets, std::int16_t index) {
  return assets.empty() || assets.front() == nullptr ? 1 : index + 1;
}

}  // namespace

class DeletionWatch::View final : public DepCalcViewEvents {
 public:
  View(DepCalcViewEvents& container, const Deletion& deletion)
      : container_(container), deletion_(deletion) {}

  void GetCalcDepAll(CalculateDepArray& myCalcDep, std::int16_t& myStartYr, double& myNumYrs,
                     std::int16_t& myNumAssets) override {
    container_.GetCalcDepAll(myCalcDep, myStartYr, myNumYrs, myNumAssets);
  }
  void ResizedDisplay() override { container_.ResizedDisplay(); }
  void SaveRecord(const CalculateDepPtr& myRecord) override { container_.SaveRecord(myRecord); }
  void ButtonClick(const std::string& myButton) override { container_.ButtonClick(myButton); }
  void DeleteButtonClick(CalculateDepArray& myCalcDep, std::int16_t myIndex) override {
    deletion_(numberTakenOut(myCalcDep, myIndex),
              [&] { container_.DeleteButtonClick(myCalcDep, myIndex); });
  }
  void GetCalcDep(CalculateDepPtr& myCalcDep) override { container_.GetCalcDep(myCalcDep); }
  void GetStartDir(std::string& myStartDir) override { container_.GetStartDir(myStartDir); }
  void HelpClick(const std::string& myTopic) override { container_.HelpClick(myTopic); }
  void ShowCover(bool showHide) override { container_.ShowCover(showHide); }

 private:
  DepCalcViewEvents& container_;
  const Deletion& deletion_;
};

DeletionWatch::DeletionWatch(ScreenMaker& maker, Deletion deletion)
    : maker_(maker), deletion_(std::move(deletion)) {}
DeletionWatch::~DeletionWatch() = default;

DeletionWatch::Screen DeletionWatch::makeCtl(UserControl& container, std::string name,
                                             DepCalcCtlEvents& events) {
  return maker_.makeCtl(container, std::move(name), events);
}

DeletionWatch::Screen DeletionWatch::makeDisplay(UserControl& container, std::string name,
                                                 DepCalcDisplayCtlEvents& events) {
  return maker_.makeDisplay(container, std::move(name), events);
}

DeletionWatch::Screen DeletionWatch::makeView(UserControl& container, std::string name,
                                              DepCalcViewEvents& events) {
  view_ = std::make_unique<View>(events, deletion_);
  return maker_.makeView(container, std::move(name), *view_);
}

DeletionWatch::Screen DeletionWatch::makePopup(UserControl& container, std::string name,
                                               DepCalcPopupEvents& events) {
  return maker_.makePopup(container, std::move(name), events);
}

}  // namespace depcalc
