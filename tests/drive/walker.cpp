#include "tests/drive/walker.h"

#include <array>
#include <utility>

#include "controls/drop_down_list.h"
#include "controls/grid.h"

namespace depcalc::drive {
namespace {

constexpr std::array<std::string_view, 44> texts = {"A1",
                                                    "Delivery truck",
                                                    "1000",
                                                    "38,450.00",
                                                    "0",
                                                    "-",
                                                    "-5",
                                                    ".",
                                                    "5",
                                                    "7.5",
                                                    "50",
                                                    "50.4",
                                                    "51",
                                                    "0.6",
                                                    "1e3",
                                                    "9999999.99",
                                                    "10000000",
                                                    "abc",
                                                    "12345.6",
                                                    "03/15/2020",
                                                    "3.15.2020",
                                                    "0315",
                                                    "03152020",
                                                    "3/15",
                                                    "02/29/2020",
                                                    "2/30/2021",
                                                    "13/5/2020",
                                                    "3/15/1960",
                                                    "12/31/2080",
                                                    "March 15, 2020",
                                                    "1/2/3/4",
                                                    "///",
                                                    "2020-03-15",
                                                    "15-Mar-20",
                                                    "April",
                                                    "  7  ",
                                                    "100.005",
                                                    "0.005",
                                                    "99999999999999999999",
                                                    "1",
                                                    "2",
                                                    "10",
                                                    "twenty-one chars here",
                                                    "caf\xC3\xA9 \xE2\x82\xAC"};
constexpr std::array<std::string_view, 9> keys = {
    "Backspace", "Backspace", "Tab", "Tab", "Shift+Tab", "Left", "Right", "Up", "Down"};
constexpr std::array<std::string_view, 6> printers = {"printer off",       "printer on",
                                                      "failpage 2",        "failpage 0",
                                                      "paper 11520 15120", "paper 15120 7000"};
/// What no button sends and no link opens, and what is found in a record that others wrote.
constexpr std::array<std::string_view, 12> oddities = {
    "raise entry save",  "raise compare New",   "raise view Odd",      "help Nothing",
    "help Total",        "helpcompare Total",   "helpcompare Step1",   "saverecord",
    "set DepMethod Uop", "set DepConvention 9", "set DepRecovery 2.5", "set AssetProdCap x"};
constexpr int many_columns = 8;
constexpr int too_many_columns = 24;

}  // namespace

Walker::Walker(unsigned seed, DriveHost& host, ScreenMaker& screens, const DriveOptions& options)
    : random_(seed), driver_(host, screens, out_, options) {
  driver_.answerWith([this](const MessageBox& box) { return answer(box); });
  run("start");
}

int Walker::below(int count) {
  // Not std::uniform_int_distribution, whose numbers differ between libraries.
  return static_cast<int>(random_() % static_cast<unsigned>(count));
}

std::string Walker::script() const {
  std::string script;
  for (const std::string& command : commands_) script += command + '\n';
  return script;
}

void Walker::forget() {
  commands_.clear();
  driver_.forgetPages();
}

BoxAnswer Walker::answer(const MessageBox& box) {
  constexpr std::array all = {BoxAnswer::yes, BoxAnswer::no, BoxAnswer::cancel};
  BoxAnswer answer = oneOf(all);
  while (!canAnswer(box.buttons, answer)) answer = oneOf(all);
  answers_.push_back("answer " + std::string(boxAnswerText(answer)));
  return answer;
}

void Walker::run(const std::string& command) {
  answers_.clear();
  const std::size_t at = commands_.size();
  commands_.push_back(command);
  driver_.run(command);
  commands_.insert(commands_.begin() + static_cast<std::ptrdiff_t>(at), answers_.begin(),
                   answers_.end());
}

std::string Walker::step() {
  out_.str({});
  const auto shown = shownControls();
  if (chance(crowded() ? 60 : 10) && actWithAPlan()) {
    // done
  } else if (shown.empty() || below(200) == 0) {
    useHost();
  } else if (chance(15)) {
    run("key " + std::string(oneOf(keys)));
  } else {
    const auto& [control, name] = oneOf(shown);
    actOn(*control, name);
  }
  return out_.str();
}

/// Whether there are more assets than a user would want, as the register last had them.
bool Walker::crowded() const {
  const auto* const screen =
      static_cast<const UserControl*>(driver_.container().child("DepCalcView1"));
  return static_cast<const Grid*>(screen->child("AssetViewTable"))->columns() > too_many_columns;
}

/// What users usually do, which chance alone would hardly ever bring about.
bool Walker::actWithAPlan() {
  const UserControl* const screen = driver_.container().visibleScreen();
  if (screen == nullptr) return false;
  if (screen->name() == "DepCalcCtl1") {
    if (crowded()) {
      run("click ViewAllLabel");
    } else {
      fillForm();
    }
    return true;
  }
  const auto* const grid = static_cast<const Grid*>(screen->child("AssetViewTable"));
  if (grid == nullptr || !grid->isShown()) return false;
  run("cell AssetViewTable 0 " + std::to_string(below(grid->columns())));
  run(chance(grid->columns() > many_columns ? 20 : 80) ? "click EditButton" : "click DeleteButton");
  return true;
}

void Walker::fillForm() {
  constexpr std::array<std::pair<std::string_view, std::array<std::string_view, 3>>, 6> fields = {{
      {"StartDateText", {"03/15/2020", "7/1/2019", "12/31/2022"}},
      {"DRecoveryText", {"5", "7", "12"}},
      {"BasisText", {"1000", "38450", "9999.99"}},
      {"SalvageText", {"0", "100", "250.50"}},
      {"ProdCapText", {"1000", "0", "150000"}},
      {"NameText", {"Saw", "Lathe", "Press"}},
  }};
  for (const auto& [name, good_texts] : fields) {
    if (chance(30)) continue;
    run("focus " + std::string(name));
    run("paste " + std::string(oneOf(good_texts)));
  }
  constexpr std::array buttons = {"CalcButton", "SaveButton", "ViewAllLabel", "ClearButton"};
  if (chance(70)) run(std::string("click ") + oneOf(buttons));
}

void Walker::useHost() {
  switch (below(8)) {
    case 0:
      run("company close");
      return run("company open walk.company");
    case 1:
      return run("expose");
    case 2:
    case 3:
      return run(std::string(oneOf(printers)));
    case 4:
    case 5:
      return run(std::string(oneOf(oddities)));
    default:
      return run("leave");
  }
}

std::vector<std::pair<const Control*, std::string>> Walker::shownControls() const {
  std::vector<std::pair<const Control*, std::string>> shown;
  const DepCalcCont& container = driver_.container();
  const auto add = [&shown](const UserControl& parent, const std::string& prefix) {
    for (const Control* child : parent.children()) {
      if (child->isShown()) shown.emplace_back(child, prefix + child->name());
    }
  };
  if (container.visibleScreen() != nullptr) add(*container.visibleScreen(), "");
  for (const std::string popup : {"DepCalcPopup1", "DepCalcPopup2"}) {
    add(static_cast<const UserControl&>(*container.child(popup)), popup + ".");
  }
  return shown;
}

void Walker::actOn(const Control& control, const std::string& name) {
  switch (control.kind()) {
    case ControlKind::textBox:
      return typeInto(name);
    case ControlKind::dropDownList:
      return run("choose " + name + ' ' + oneOf(static_cast<const DropDownList&>(control).items()));
    case ControlKind::grid: {
      const auto& grid = static_cast<const Grid&>(control);
      if (grid.rows() == 0 || grid.columns() == 0) return;
      return run("cell " + name + ' ' + std::to_string(below(grid.rows())) + ' ' +
                 std::to_string(below(grid.columns())));
    }
    default:
      if (chance(90)) return run("click " + name);
      run("press " + name);
      return run("release");
  }
}

void Walker::typeInto(const std::string& name) {
  run("focus " + name);
  const std::string text(oneOf(texts));
  if (chance(30)) run("clear");
  if (chance(5)) return;
  if (chance(80)) {
    run("type " + text);
  } else {
    run("paste " + text);
  }
}

}  // namespace depcalc::drive
