// The entry form in a container that records what it is asked.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/report_error.h"
#include "controls/user.h"
#include "entry/dep_calc_ctl.h"
#include "tests/support/scripted_site.h"
#include "tests/support/trace_lines.h"

namespace depcalc::testing {

struct EntryContainer : UserControl, DepCalcCtlEvents {
  explicit EntryContainer(Stage& stage) : UserControl(stage, "Container") {}

  void GetCalcDep(CalculateDepPtr& myCalcDep, Date& myFYEnd) override {
    ++fetched;
    myCalcDep = record;
    myFYEnd = fiscal_year_end;
  }
  void ButtonClick(const std::string& myButton) override { said.push_back(myButton); }
  void HelpClick(const std::string& myTopic) override { said.push_back("help " + myTopic); }
  void CheckMe(bool& myChanged) override {
    said.emplace_back("CheckMe");
    myChanged = changed;
  }

  std::vector<std::string> take() { return std::exchange(said, {}); }

  CalculateDepPtr record = std::make_shared<CalculateDep>();
  Date fiscal_year_end = Date::strict(2024, 3, 31);
  bool changed = false;
  int fetched = 0;
  std::vector<std::string> said;
  DepCalcCtl form{*this, "DepCalcCtl1", *this};
};

/// Today is 15 June 2024. A new, blank asset unless a test says otherwise.
struct EntryForm : ::testing::Test {
  EntryForm() {
    container.show();
    record().RecNew(true);
  }

  CalculateDep& record() { return *container.record; }

  /// Shows the form anew, as the container does.
  void open() {
    form.hide();
    form.show();
    stage.pumpPaint();
    site.boxes.clear();
    trace.take();
  }

  void openNew() {
    container.record = std::make_shared<CalculateDep>();
    record().RecNew(true);
    open();
  }

  /// Goes to a field, types or pastes, and tries to leave for the ID field (from there, for the
  /// name). Returns whether it could.
  bool leave(InputControl& field) {
    InputControl& elsewhere =
        &field == &form.IDText ? static_cast<InputControl&>(form.NameText) : form.IDText;
    return user.moveFocus(elsewhere);
  }
  bool typeInto(TextBox& field, std::string_view text) {
    user.moveFocus(field);
    user.clear();
    user.type(text);
    return leave(field);
  }
  bool pasteInto(TextBox& field, const std::string& text) {
    user.moveFocus(field);
    user.paste(text);
    return leave(field);
  }

  /// "TITLE | TEXT" of every box since the last call.
  std::vector<std::string> boxes() {
    std::vector<std::string> lines;
    for (const MessageBox& box : site.takeBoxes()) {
      EXPECT_EQ(box.buttons, BoxButtons::ok);
      lines.push_back(box.title + " | " + box.text);
    }
    return lines;
  }

  ScriptedSite site;
  TraceLines trace;
  Stage stage{site, &trace};
  User user{stage};
  EntryContainer container{stage};
  DepCalcCtl& form = container.form;
  std::vector<std::string> reports;
  ErrorReportHook hook{[this](const ErrorReport& report) { reports.push_back(report.text()); }};
};

}  // namespace depcalc::testing
