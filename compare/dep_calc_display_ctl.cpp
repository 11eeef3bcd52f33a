#include "compare/dep_calc_display_ctl.h"

#include "common/trapped.h"
#include "values/runtime_error.h"

namespace depcalc {

DepCalcDisplayCtl::DepCalcDisplayCtl(UserControl& parent, std::string name,
                                     DepCalcDisplayCtlEvents& events)
    : UserControl(parent, std::move(name)), events_(events) {
  trapped("DepCalcDisplay::Initialize", [this] { SetupPalette(); });
  setLooks();
  placeControls();
  connectLabels();
  connectOptions();
  connectButtons();
}

void DepCalcDisplayCtl::connectLabels() {
  HelpLabel.onClick = [this] { events_.HelpClick("MainHelp"); };
  stepLabel.onClick = [this] { events_.HelpClick("Step"); };
  TotalHelp.onClick = [this] { events_.HelpClick("Total"); };
  ViewAllLabel.onClick = [this] { viewAll(); };
}

void DepCalcDisplayCtl::connectOptions() {
  for (OptionButton* option : {&SLOption, &SYDOption, &DDBOption, &UoPOption}) {
    option->onClick = [this, option] { choose(*option); };
  }
  // Looking at a cell chooses nothing.
  DisplayTable.onClick = [this] { markChosenColumn(); };
}

void DepCalcDisplayCtl::connectButtons() {
  SaveButton.actOnRelease([this] { save(); });
  CloseButton.actOnRelease([this] { close(); });
}

void DepCalcDisplayCtl::save() {
  painted_ = false;
  PopulateDepInfo();
  events_.ButtonClick("Save");
}

void DepCalcDisplayCtl::close() {
  painted_ = false;
  RevertDepInfo();
  // By definition, without effect: the next fill makes them anew.
  for (const ScheduledMethod& scheduled : scheduled_methods) {
    (results_.*scheduled.amounts).resize(2);
  }
  prior_amounts_.resize(2);
  events_.ButtonClick("Close");
}

void DepCalcDisplayCtl::viewAll() {
  painted_ = false;
  // What is shown has just been calculated, so there always is something to save.
  const BoxAnswer answer =
      messageBox("You have not saved your changes to this asset. Would you like to save them now?",
                 BoxButtons::yesNoCancel, "Save Changes");
  if (answer == BoxAnswer::yes) {
    PopulateDepInfo();
    events_.ButtonClick("Save");
  } else if (answer == BoxAnswer::no) {
    RevertDepInfo();
    events_.ButtonClick("ViewAll");
  }
}

CalculateDep& DepCalcDisplayCtl::record() const {
  if (record_ == nullptr) throw RuntimeError::objectNotSet();
  return *record_;
}

void DepCalcDisplayCtl::Hide() { painted_ = false; }

}  // namespace depcalc
