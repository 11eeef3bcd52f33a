// How the entry form shows a record.
#include "common/trapped.h"
#include "engine/convention.h"
#include "entry/dep_calc_ctl.h"
#include "values/display_format.h"
#include "values/number_text.h"

namespace depcalc {

/// Not left to the paint that follows: where a button of the form itself led here, its action ends
/// after this and clears the flag, and that paint shows a new asset as a record like any other.
void DepCalcCtl::Show() { Paint(); }

void DepCalcCtl::Paint() {
  trapped("DepCalcCtl::Paint", [this] {
    if (filled_) return;
    filled_ = true;
    fetch();
    if (record().RecNew()) {
      fillBlank();
      record().RecNew(false);
    } else {
      fillFromRecord();
    }
    IDText.SetFocus();
  });
}

void DepCalcCtl::fetch() {
  record_.reset();
  events_.GetCalcDep(record_, fiscal_year_end_);
}

void DepCalcCtl::fillBlank() {
  for (TextBox* field : {&IDText, &NameText, &DeptText, &SerialText, &BasisText, &StartDateText,
                         &ProdCapText, &SalvageText, &DRecoveryText}) {
    field->setText("");
  }
  DConvList.setText(convention_names.front());
  FYEndText.setText(fiscal_year_end_.isNone() ? "" : firstMonthText(fiscal_year_end_));
}

void DepCalcCtl::fillFromRecord() {
  const CalculateDep& asset = record();
  IDText.setText(asset.AssetID());
  NameText.setText(asset.AssetName());
  SerialText.setText(asset.ASerial());
  DeptText.setText(asset.ADept());
  const Currency basis = asset.AssetBasis();
  BasisText.setText(basis == Currency() ? "" : formatMoney(basis));
  const Date start = asset.AssetStartDate();
  StartDateText.setText(start.isNone() ? "" : start.toText());
  const double capacity = numberFromText(asset.AssetProdCap());
  ProdCapText.setText(capacity == 0 ? "" : formatWhole(capacity));
  const Currency salvage = asset.AssetSalvage();
  SalvageText.setText(salvage == Currency() ? "0" : formatMoney(salvage));
  const double life = asset.DepRecovery();
  DRecoveryText.setText(life == 0 ? "" : numberToText(life));
  DConvList.setText(conventionName(asset.DepConvention()));
  const Date year_end = asset.FYEnd().isNone() ? fiscal_year_end_ : asset.FYEnd();
  FYEndText.setText(year_end.isNone() ? "" : firstMonthText(year_end));
}

std::string DepCalcCtl::firstMonthText(Date fiscal_year_end) const {
  return fiscal_year_end.plusDays(1).monthName();
}

}  // namespace depcalc
