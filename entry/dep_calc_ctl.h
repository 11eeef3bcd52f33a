// The entry form: step 1 of 2.
#pragma once

#include <string>

#include "controls/drop_down_list.h"
#include "controls/label.h"
#include "controls/picture_button.h"
#include "controls/shape.h"
#include "controls/text_box.h"
#include "controls/user_control.h"
#include "entry/dep_calc_ctl_events.h"
#include "entry/field_rules.h"

namespace depcalc {

/// Edits one asset in place, field by field: a field goes into the record when it loses the
/// focus. Shown, or painted for the first time after a button has acted, the form fetches the
/// record anew and fills itself.
class DepCalcCtl : public UserControl {
 public:
  DepCalcCtl(UserControl& parent, std::string name, DepCalcCtlEvents& events);

  /// The required fields, in their order, then the whole form. The first that fails says so and
  /// takes the focus.
  void BlankData();
  /// The whole form. The field that has the focus validates on the way. A blank form passes.
  void ValidateData();
  /// What the last of the two found.
  [[nodiscard]] bool dataValid() const { return data_valid_; }

  Shape BackShape{*this, "BackShape"};
  Label CalcDepLabel{*this, "CalcDepLabel", "Calculate Depreciation"};
  Label ViewAllLabel{*this, "ViewAllLabel", "  View All   Assets  "};
  Label HelpLabel{*this, "HelpLabel", "Using this calculator"};
  Label TitleLabel{*this, "TitleLabel", "Enter information about your fixed asset:"};
  Label stepLabel{*this, "stepLabel", "Step 1 of 2"};

  Label AIDLabel{*this, "AIDLabel", "Asset ID"};
  Label ANameLabel{*this, "ANameLabel", "Name"};
  Label ASerialLabel{*this, "ASerialLabel", "Serial Number"};
  Label ADeptLabel{*this, "ADeptLabel", "Department/Location"};
  Label AStartDateLabel{*this, "AStartDateLabel", "Placed-in-service Date"};
  Label FYEndLabel{*this, "FYEndLabel", "First Month of Fiscal Year"};
  Label DRecoveryLabel{*this, "DRecoveryLabel", "Useful Life"};
  Label DConvLabel{*this, "DConvLabel", "Convention"};
  Label ABasisLabel{*this, "ABasisLabel", "Basis"};
  Label ASalvageLabel{*this, "ASalvageLabel", "Salvage Value"};
  Label ProdCapLabel{*this, "ProdCapLabel", "Production Capacity"};

  TextBox IDText{*this, "IDText"};
  TextBox NameText{*this, "NameText"};
  TextBox SerialText{*this, "SerialText"};
  TextBox DeptText{*this, "DeptText"};
  TextBox StartDateText{*this, "StartDateText"};
  TextBox FYEndText{*this, "FYEndText"};
  TextBox DRecoveryText{*this, "DRecoveryText"};
  DropDownList DConvList;
  TextBox BasisText{*this, "BasisText"};
  TextBox SalvageText{*this, "SalvageText"};
  TextBox ProdCapText{*this, "ProdCapText"};

  PicturePair CalcButton{*this, "CalcButton", "calc", "Calculate", 'C'};
  PicturePair ClearButton{*this, "ClearButton", "new", "New", 'N'};
  PicturePair SaveButton{*this, "SaveButton", "save", "Save", 'S'};

 private:
  /// Set by every change of a field's text, cleared when the text has been stored.
  struct Changed {
    bool start_date = false;
    bool life = false;
    bool convention = false;
    bool basis = false;
    bool salvage = false;
    bool capacity = false;
  };

  void Show() override;
  void Paint() override;
  void Hide() override;

  // dep_calc_ctl.cpp
  void connectLabels();
  void connectButtons();
  void connectFreeTexts();
  void connectCheckedFields();
  [[nodiscard]] CalculateDep& record() const;
  void say(const Message& message) const;
  [[nodiscard]] BoxAnswer askToSave() const;

  // entry_layout.cpp
  void layOut();

  // entry_fill.cpp
  void fetch();
  void fillBlank();
  void fillFromRecord();
  [[nodiscard]] std::string firstMonthText(Date fiscal_year_end) const;

  // entry_validation.cpp
  void keyPressed(const TextBox& field, char32_t key, bool& discard) const;
  void numberChanged(NumericField field, TextBox& box, bool& changed);
  void reject(TextBox& field, Rejected refusal, bool& cancel) const;
  template <typename Value, typename Store>
  void settle(TextBox& field, bool& changed, const Checked<Value>& checked, bool& cancel,
              Store store);
  void StartDateText_Validate(bool& cancel);
  void FYEndText_Validate();
  void DREcoveryText_Validate(bool& cancel);
  void DConvList_Validate();
  void BasisText_Validate(bool& cancel);
  void SalvageText_Validate(bool& cancel);
  void ProdCapText_Validate(bool& cancel);

  // entry_checks.cpp
  void refuse(FormMessage message, InputControl& field);
  [[nodiscard]] bool isBlankForm() const;
  void checkWholeForm();
  void calculate();
  void save();
  void startNew();
  void viewAll();

  DepCalcCtlEvents& events_;
  CalculateDepPtr record_;
  Date fiscal_year_end_;  ///< the company's; no date while unknown
  bool data_valid_ = false;
  bool filled_ = false;
  Changed changed_;
};

}  // namespace depcalc
