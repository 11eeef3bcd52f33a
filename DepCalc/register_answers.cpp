#include "DepCalc/register_answers.h"

#include "DepCalc/dep_calc_cont.h"
#include "DepCalc/register_reading.h"
#include "common/trapped.h"

namespace depcalc {

void RegisterAnswers::GetCalcDepAll(CalculateDepArray& myCalcDep, std::int16_t& myStartYr,
                                    double& myNumYrs, std::int16_t& myNumAssets) {
  trapped("DepCalc::View_GetCalcDepAll", [&] {
    const std::int32_t count = container_.recordCount();
    if (count == 0) return;
    // One element more than there are assets; the last stays empty.
    CalculateDepArray& all = container_.AllRecords_.emplace(static_cast<std::size_t>(count));
    AssetStore& store = container_.store_;
    readRegister(
        store, container_.state_, [&store](std::int16_t index) { return store.ReadData(index); },
        all, myStartYr, myNumYrs, myNumAssets);
    myCalcDep = all;
  });
}

void RegisterAnswers::ResizedDisplay() { container_.ShowView(emv_ViewAll); }

void RegisterAnswers::SaveRecord(const CalculateDepPtr& myRecord) {
  container_.store_.DepCalcContSaveRecord(myRecord);
}

void RegisterAnswers::ButtonClick(const std::string& myButton) {
  trapped("DepCalc::DepCalcView1_ButtonClick", [&] {
    if (myButton == "New") container_.NewRecord();
    if (myButton == "Edit") edit();
    container_.ShowView(emv_Calc);
  });
}

// The asset is read anew, so that edits which were not saved are gone.
void RegisterAnswers::edit() {
  if (container_.currentRecord().RecNew()) {
    container_.NewRecord();
  } else {
    container_.state_.CurrentRecord = container_.store_.ReadData(container_.currentIndex());
  }
}

void RegisterAnswers::DeleteButtonClick(CalculateDepArray& myCalcDep, std::int16_t myIndex) {
  container_.site().setPointer(Pointer::hourglass);
  container_.store_.DeleteRecord(myCalcDep, myIndex);
  container_.NewRecord();
  container_.DepCalcView1_->hide();
  container_.site().setPointer(Pointer::normal);
}

void RegisterAnswers::GetCalcDep(CalculateDepPtr& myCalcDep) {
  trapped("DepCalc::View_GetCalcDep", [&] { myCalcDep = container_.recordToHandOut(); });
}

void RegisterAnswers::GetStartDir(std::string& myStartDir) { myStartDir = container_.StartDir_; }

void RegisterAnswers::HelpClick(const std::string& myTopic) {
  container_.popups_.openFromForm(myTopic);
}

void RegisterAnswers::ShowCover(bool showHide) {
  if (showHide) {
    container_.CoverPicture_.setSize(container_.width(), container_.height());
    container_.CoverPicture_.bringToFront();
  }
  container_.CoverPicture_.setVisible(showHide);
}

}  // namespace depcalc
