// What the entry form's fields do when they are typed in and when they lose the focus.
//
// A field that loses the focus stores its text in the record, or refuses: it says why, empties
// itself and keeps the focus. A text that cannot be read ends the handler quietly, with the focus
// free to go and the text still marked as changed.
#include "common/trapped.h"
#include "engine/convention.h"
#include "entry/dep_calc_ctl.h"

namespace depcalc {

void DepCalcCtl::keyPressed(const TextBox& field, char32_t key, bool& discard) const {
  const KeyAnswer answer = limitedKey(field.text(), key);
  if (answer.beep) site().beep();
  if (answer.discard) discard = true;
}

void DepCalcCtl::numberChanged(NumericField field, TextBox& box, bool& changed) {
  changed = true;
  const auto refusal = refusedWhileTyping(field, box.text());
  if (!refusal) return;
  say(messageOf(refusal->message));
  box.setText("");
  box.SetFocus();
}

void DepCalcCtl::reject(TextBox& field, Rejected refusal, bool& cancel) const {
  say(messageOf(refusal.message));
  cancel = true;
  field.setText("");
  field.SetFocus();
}

template <typename Value, typename Store>
void DepCalcCtl::settle(TextBox& field, bool& changed, const Checked<Value>& checked, bool& cancel,
                        Store store) {
  if (const auto* refusal = std::get_if<Rejected>(&checked)) {
    reject(field, *refusal, cancel);
    return;
  }
  const auto& accepted = std::get<Accepted<Value>>(checked);
  field.setText(shownText(accepted));
  store(accepted.value);
  changed = false;
}

void DepCalcCtl::StartDateText_Validate(bool& cancel) {
  trapped("DepCalcCtl::StartDateText_Validate", [&] {
    const Date today = site().today();
    // The date stands in the field in full before it is held against the limit.
    const auto date = normalisedDateText({StartDateText.text(), changed_.start_date}, today);
    if (const auto* text = std::get_if<Accepted<std::string>>(&date)) {
      StartDateText.setText(text->value);
    }
    settle(StartDateText, changed_.start_date,
           placedInServiceRule({StartDateText.text(), changed_.start_date}, today), cancel,
           [this](Date placed) { record().AssetStartDate(placed); });
  });
}

void DepCalcCtl::FYEndText_Validate() {
  // The field shows a month's name, which is no date: as a rule this stores nothing.
  trapped("DepCalcCtl::FYEndText_Validate", [this] {
    record().FYEnd(Date::fromText(FYEndText.text(), site().today()).plusDays(-1));
  });
}

void DepCalcCtl::DREcoveryText_Validate(bool& cancel) {
  trapped("DepCalcCtl::DREcoveryText_Validate", [&] {
    settle(DRecoveryText, changed_.life, usefulLifeRule({DRecoveryText.text(), changed_.life}),
           cancel, [this](double years) { record().DepRecovery(years); });
  });
}

void DepCalcCtl::DConvList_Validate() {
  if (!changed_.convention || record_ == nullptr) return;
  record_->DepConvention(conventionDigit(DConvList.text()));
  changed_.convention = false;
}

void DepCalcCtl::BasisText_Validate(bool& cancel) {
  trapped("DepCalcCtl::BasisText_Validate", [&] {
    settle(BasisText, changed_.basis,
           basisRule({BasisText.text(), changed_.basis}, SalvageText.text()), cancel,
           [this](Currency amount) { record().AssetBasis(amount); });
  });
}

void DepCalcCtl::SalvageText_Validate(bool& cancel) {
  trapped("DepCalcCtl::SalvageText_Validate", [&] {
    settle(SalvageText, changed_.salvage,
           salvageRule({SalvageText.text(), changed_.salvage}, BasisText.text()), cancel,
           [this](Currency amount) { record().AssetSalvage(amount); });
  });
}

void DepCalcCtl::ProdCapText_Validate(bool& cancel) {
  trapped("DepCalcCtl::ProdCapText_Validate", [&] {
    const bool just_emptied = changed_.capacity && ProdCapText.empty();
    settle(ProdCapText, changed_.capacity,
           productionCapacityRule({ProdCapText.text(), changed_.capacity}), cancel,
           [this](const std::string& units) { record().AssetProdCap(units); });
    // What was just emptied stays marked: "0" is stored for a field that was empty from the start.
    if (just_emptied) changed_.capacity = true;
  });
}

}  // namespace depcalc
