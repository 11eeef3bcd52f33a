// The entry form as a whole: its checks and its buttons.
#include "common/trapped.h"
#include "entry/dep_calc_ctl.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

/// A text that is no number counts as 0.
double numberOrZero(const TextBox& field) { return tryNumberFromText(field.text()).value_or(0); }

}  // namespace

void DepCalcCtl::refuse(FormMessage message, InputControl& field) {
  say(messageOf(message));
  field.SetFocus();
}

void DepCalcCtl::BlankData() {
  trapped("DepCalcCtl::BlankData", [this] {
    data_valid_ = false;
    const struct {
      TextBox& field;
      FormMessage message;
    } required[] = {
        {StartDateText, FormMessage::start_date_missing},
        {FYEndText, FormMessage::fiscal_year_missing},
        {DRecoveryText, FormMessage::life_missing},
        {BasisText, FormMessage::basis_missing},
        {SalvageText, FormMessage::salvage_missing},
    };
    for (const auto& [field, message] : required) {
      if (field.empty()) return refuse(message, field);
    }
    ValidateData();
  });
}

void DepCalcCtl::ValidateData() {
  trapped("DepCalcCtl::ValidateData", [this] {
    data_valid_ = false;
    // Whichever field has the focus validates now. Both moves are made even if the first is
    // refused: the second then leaves the emptied field.
    IDText.SetFocus();
    ProdCapText.SetFocus();
    if (isBlankForm()) {
      data_valid_ = true;
    } else {
      checkWholeForm();
    }
  });
}

bool DepCalcCtl::isBlankForm() const {
  for (const TextBox* field :
       {&IDText, &NameText, &DeptText, &SerialText, &BasisText, &ProdCapText, &DRecoveryText}) {
    if (!field->empty()) return false;
  }
  return (SalvageText.empty() || SalvageText.text() == "0") &&
         (FYEndText.empty() || FYEndText.text() == firstMonthText(fiscal_year_end_));
}

void DepCalcCtl::checkWholeForm() {
  if (StartDateText.empty()) return refuse(FormMessage::start_date_missing, StartDateText);
  const double salvage = numberOrZero(SalvageText);
  if (salvage != 0 && salvage > numberOrZero(BasisText)) {
    return refuse(FormMessage::salvage_above_basis, SalvageText);
  }
  if (record().FYEnd().isNone()) record().FYEnd(fiscal_year_end_);
  data_valid_ = true;
}

void DepCalcCtl::calculate() {
  BlankData();
  if (data_valid_) events_.ButtonClick("Calc");
}

void DepCalcCtl::save() {
  if (StartDateText.empty()) {
    refuse(FormMessage::start_date_missing_to_save, StartDateText);
    data_valid_ = false;
    if (record_ != nullptr) record_->RecIndex("0");
  } else {
    ValidateData();
  }
  if (data_valid_) events_.ButtonClick("Save");
}

void DepCalcCtl::startNew() {
  bool changed = false;
  events_.CheckMe(changed);
  const BoxAnswer answer = changed ? askToSave() : BoxAnswer::no;
  if (answer == BoxAnswer::no) return events_.ButtonClick("New");
  if (answer != BoxAnswer::yes) return;
  ValidateData();
  if (data_valid_) events_.ButtonClick("SaveandNew");
}

void DepCalcCtl::viewAll() {
  ValidateData();
  if (!data_valid_) return;
  bool changed = false;
  events_.CheckMe(changed);
  const BoxAnswer answer = changed ? askToSave() : BoxAnswer::no;
  if (answer == BoxAnswer::yes) events_.ButtonClick("Save");
  if (answer == BoxAnswer::no) events_.ButtonClick("ViewAll");
}

}  // namespace depcalc
