#include "DepCalc/dep_calc_cont.h"

#include "DepCalc/saved_changes.h"
#include "common/trapped.h"
#include "controls/stage.h"
#include "values/number_text.h"
#include "values/rounding.h"

namespace depcalc {

DepCalcCont::DepCalcCont(Stage& stage, ScreenMaker& screens, CreateHost create_host,
                         UtilModule::ExecutablePath executable_path)
    : UserControl(stage, "DepCalcCont"),
      create_host_(create_host),
      util_(std::move(create_host), std::move(executable_path)),
      host_palette_(stage, util_),
      store_(state_, [this] { return site().today(); }),
      DepCalcView1_(screens.makeView(*this, "DepCalcView1", register_answers_)),
      DepCalcCtl1_(screens.makeCtl(*this, "DepCalcCtl1", entry_answers_)),
      DepCalcDisplayCtl1_(screens.makeDisplay(*this, "DepCalcDisplayCtl1", comparison_answers_)),
      popups_(
          *this, screens, [this] { return DepCalcCtl1_->width(); },
          [this] { return DepCalcDisplayCtl1_->height(); }) {}

void DepCalcCont::ShowView(eMyView view) {
  trapped("DepCalc::ShowView", [&] {
    switch (view) {
      case emv_ViewAll:
        return showScreen(view, {&DepCalcCtl1_, &DepCalcDisplayCtl1_}, *DepCalcView1_);
      case emv_Calc:
        return showScreen(view, {&DepCalcDisplayCtl1_, &DepCalcView1_, &DepCalcCtl1_},
                          *DepCalcCtl1_);
      case emv_Display:
        return showScreen(view, {&DepCalcCtl1_, &DepCalcView1_}, *DepCalcDisplayCtl1_);
      case emv_Print:
        return;
    }
  });
}

void DepCalcCont::showScreen(eMyView view, std::initializer_list<const ScreenMaker::Screen*> hidden,
                             UserControl& shown) {
  DisplayShown_ = view == emv_Display;
  ViewShown_ = view == emv_ViewAll;
  for (const ScreenMaker::Screen* screen : hidden) (*screen)->hide();
  shown.show();
  setSize(shown.width(), shown.height());
}

UserControl* DepCalcCont::visibleScreen() const {
  for (const auto& screen : {DepCalcView1_.get(), DepCalcCtl1_.get(), DepCalcDisplayCtl1_.get()}) {
    if (screen->visible()) return screen;
  }
  return nullptr;
}

void DepCalcCont::NewRecord() {
  auto record = std::make_shared<CalculateDep>();
  record->RecNew(true);
  record->RecIndex("0");
  record->AssetProdCap("0");
  record->DepConvention("0");
  state_.CurrentRecord = std::move(record);
}

bool DepCalcCont::CheckforChanges() {
  bool changed = false;
  trapped("DepCalc::CheckforChanges", [&] {
    const CalculateDep* const saved = savedCopy();
    changed =
        saved != nullptr ? differsFromSaved(currentRecord(), *saved) : !isBlank(currentRecord());
  });
  return changed;
}

void DepCalcCont::SaveCurrent() {
  if (const CalculateDep* const saved = savedCopy()) {
    const std::string_view warning = recalculationWarning(currentRecord(), *saved);
    if (!warning.empty()) messageBox(std::string(warning), BoxButtons::ok, "Recalculate");
  }
  writeCurrent();
}

MessageBox DepCalcCont::leavingQuestion() {
  return {"You have not saved your changes to this asset. Would you like to save your changes now?",
          BoxButtons::yesNo, "Save Changes"};
}

void DepCalcCont::LostFocus() {
  trapped("DepCalc::lostfocus", [&] {
    if (!asksWhenLeft()) return;
    if (stage().messageBox(leavingQuestion()) != BoxAnswer::yes) return;
    const bool entry_form_showing = !DisplayShown_ && !ViewShown_;
    entry_form_showing ? SaveCurrent() : writeCurrent();
    state_.CurrentRecord = store_.ReadData(currentIndex());
  });
}

CalculateDep& DepCalcCont::currentRecord() const {
  if (state_.CurrentRecord == nullptr) throw RuntimeError::objectNotSet();
  return *state_.CurrentRecord;
}

/// The current record itself, or, when there is none, a blank one that does not become current.
CalculateDepPtr DepCalcCont::recordToHandOut() const {
  if (state_.CurrentRecord != nullptr) return state_.CurrentRecord;
  auto blank = std::make_shared<CalculateDep>();
  blank->RecIndex("0");
  blank->RecNew(true);
  return blank;
}

std::int16_t DepCalcCont::currentIndex() const {
  return toInteger16HalfEven(numberFromText(currentRecord().RecIndex()));
}

/// What is saved of the current record; nothing when it was never saved or the register was never
/// read. A record that the register has not read yet is error 9 or 91.
const CalculateDep* DepCalcCont::savedCopy() const {
  const double index = numberFromText(currentRecord().RecIndex());
  if (index == 0 || !AllRecords_) return nullptr;
  const double position = index - 1;
  if (position < 0 || position >= static_cast<double>(AllRecords_->size())) {
    throw RuntimeError::subscriptOutOfRange();
  }
  const CalculateDepPtr& saved = (*AllRecords_)[static_cast<std::size_t>(position)];
  if (saved == nullptr) throw RuntimeError::objectNotSet();
  return saved.get();
}

std::int32_t DepCalcCont::recordCount() const {
  if (state_.m_orvcf == nullptr) throw RuntimeError::objectNotSet();
  return state_.m_orvcf->OpenTable(state_.TableName)->Count();
}

void DepCalcCont::writeCurrent() {
  std::int16_t index = currentIndex();
  store_.WriteData(index);
}

void DepCalcCont::refreshSummary() {
  store_.ReadTableInfo(state_.StartYr, state_.NumYrs, state_.NumAssets, state_.FYEnd);
}

}  // namespace depcalc
