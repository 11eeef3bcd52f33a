#include "entry/dep_calc_ctl.h"

#include "common/trapped.h"
#include "engine/convention.h"
#include "values/runtime_error.h"

namespace depcalc {

DepCalcCtl::DepCalcCtl(UserControl& parent, std::string name, DepCalcCtlEvents& events)
    : UserControl(parent, std::move(name)),
      DConvList(*this, "DConvList", {convention_names.begin(), convention_names.end()}),
      events_(events) {
  SetupPalette();
  layOut();
  connectLabels();
  connectButtons();
  connectFreeTexts();
  connectCheckedFields();
  DConvList.setText(convention_names.front());
}

void DepCalcCtl::connectLabels() {
  const struct {
    Label& label;
    const char* topic;
  } topics[] = {
      {HelpLabel, "MainHelp"},        {stepLabel, "Step1"},     {AIDLabel, "ID"},
      {ANameLabel, "Name"},           {ASerialLabel, "Serial"}, {ADeptLabel, "Dept"},
      {AStartDateLabel, "StartDate"}, {FYEndLabel, "FY"},       {DRecoveryLabel, "Recovery"},
      {DConvLabel, "Convention"},     {ABasisLabel, "Basis"},   {ASalvageLabel, "Salvage"},
      {ProdCapLabel, "ProdCap"},
  };
  for (const auto& [label, topic] : topics) {
    label.onClick = [this, topic = topic] { events_.HelpClick(topic); };
  }
}

void DepCalcCtl::connectButtons() {
  // The press acts at once; its release is spent.
  const auto connect = [this](PicturePair& button, void (DepCalcCtl::*action)()) {
    button.actOnRelease([this, action] {
      (this->*action)();
      filled_ = false;
    });
    button.normal.onMouseDown = [&button] {
      button.pressed.show();
      button.normal.releaseNow();
    };
  };
  connect(CalcButton, &DepCalcCtl::calculate);
  connect(ClearButton, &DepCalcCtl::startNew);
  connect(SaveButton, &DepCalcCtl::save);
  ViewAllLabel.onClick = [this] {
    viewAll();
    filled_ = false;
  };
}

void DepCalcCtl::connectFreeTexts() {
  using Property = void (CalculateDep::*)(std::string);
  const auto connect = [this](TextBox& field, Property property) {
    field.onKeyPress = [this, &field](char32_t key, bool& discard) {
      keyPressed(field, key, discard);
    };
    field.onValidate = [this, &field, property,
                        procedure = "DepCalcCtl::" + field.name() + "_Validate"](bool&) {
      trapped(procedure, [&] { (record().*property)(field.text()); });
    };
  };
  connect(IDText, &CalculateDep::AssetID);
  connect(NameText, &CalculateDep::AssetName);
  connect(SerialText, &CalculateDep::ASerial);
  connect(DeptText, &CalculateDep::ADept);
}

void DepCalcCtl::connectCheckedFields() {
  StartDateText.onChange = [this] { changed_.start_date = true; };
  DRecoveryText.onChange = [this] {
    numberChanged(NumericField::life, DRecoveryText, changed_.life);
  };
  DConvList.onChange = [this] { changed_.convention = true; };
  BasisText.onChange = [this] { numberChanged(NumericField::basis, BasisText, changed_.basis); };
  SalvageText.onChange = [this] {
    numberChanged(NumericField::salvage, SalvageText, changed_.salvage);
  };
  ProdCapText.onChange = [this] {
    numberChanged(NumericField::capacity, ProdCapText, changed_.capacity);
  };

  StartDateText.onValidate = [this](bool& cancel) { StartDateText_Validate(cancel); };
  FYEndText.onValidate = [this](bool&) { FYEndText_Validate(); };
  DRecoveryText.onValidate = [this](bool& cancel) { DREcoveryText_Validate(cancel); };
  DConvList.onValidate = [this](bool&) { DConvList_Validate(); };
  BasisText.onValidate = [this](bool& cancel) { BasisText_Validate(cancel); };
  SalvageText.onValidate = [this](bool& cancel) { SalvageText_Validate(cancel); };
  ProdCapText.onValidate = [this](bool& cancel) { ProdCapText_Validate(cancel); };
}

CalculateDep& DepCalcCtl::record() const {
  if (record_ == nullptr) throw RuntimeError::objectNotSet();
  return *record_;
}

void DepCalcCtl::say(const Message& message) const {
  messageBox(std::string(message.text), BoxButtons::ok, std::string(message.title));
}

BoxAnswer DepCalcCtl::askToSave() const {
  return messageBox(std::string(save_changes_question.text), BoxButtons::yesNoCancel,
                    std::string(save_changes_question.title));
}

void DepCalcCtl::Hide() { filled_ = false; }

}  // namespace depcalc
