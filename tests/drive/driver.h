// A calculator driven by commands, one a line.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "DepCalc/dep_calc_cont.h"
#include "tests/drive/calculator.h"
#include "tests/drive/drive_host.h"
#include "tests/drive/drive_site.h"
#include "tests/drive/event_tap.h"
#include "tests/drive/hands.h"

namespace depcalc::drive {

/// A command that is none, or that names what is not there.
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct DriveOptions {
  Date today;
  bool manual_paint = false;  ///< only `idle` delivers pending paints
  bool events = false;        ///< prints the register's events, as EventTap says
};

/// How the calculator is reached and what surrounds it; by default the control model itself and
/// what prints all that a user would notice.
struct DriveParts {
  std::function<std::unique_ptr<DriveSite>(std::ostream& out, Date today)> site;
  std::function<std::unique_ptr<Hands>(DepCalcCont& container)> hands;
  std::function<std::unique_ptr<Calculator>(DriveSite& site, ScreenMaker& screens)> calculator = {};
};

/// What a user does: start · answer Yes|No|Cancel · focus NAME · type TEXT · paste TEXT · clear ·
/// key NAME · choose NAME ITEM · click NAME · press NAME · release [NAME] · cell NAME ROW COL
///
/// What the host does: idle · expose · leave · company close · company open FILE ·
/// mode single|multi · printer on|off · paper W H (what can be printed on, in twips) · failpage N
/// (printing on the Nth page of a job is error 482; 0: on none)
///
/// What is there to see: show · grid NAME · sizes GRID · looks GRID · place NAME ·
/// controls SCREEN · popups · pages · jobs ("jobs N": how many have ended)
///
/// What is behind it: record · table
///
/// What no user can do, for a screen raises any event: raise view|entry|compare TEXT (ButtonClick
/// with any text) · help TOPIC (HelpClick of the register) · helpcompare TOPIC (HelpClick of the
/// comparison) · saverecord (SaveRecord with the current record) · set PROPERTY VALUE (DepMethod,
/// DepConvention, DepRecovery, RecIndex or AssetProdCap of the current record)
///
/// A name is one of the visible screen's; DepCalcPopup1.NAME is one on a popup. `place`, `sizes`
/// and `looks` also find what is hidden, on the visible screen, on another one, or named
/// SCREEN.NAME; `place` and `controls` know the container and everything that stands in it. Blank
/// lines and lines that begin with # do nothing.
class Driver {
 public:
  Driver(DriveHost& host, ScreenMaker& screens, std::ostream& out, const DriveOptions& options,
         const DriveParts& parts = {});

  /// Runs one command. Throws ScriptError, and Unanswered for a question without an answer. A
  /// run-time error that no trap of the calculator caught is printed.
  void run(std::string_view line);

  /// Questions for which no answer is queued are put to `answer`.
  void answerWith(DriveSite::Answerer answer) { site_->answerWith(std::move(answer)); }
  void forgetPages() { site_->recorder().forget(); }
  [[nodiscard]] const DepCalcCont& container() const { return container_; }

 private:
  void act(const std::string& command, std::string_view rest);
  bool actOnHost(const std::string& command, std::string_view rest);
  bool actByKeyboard(const std::string& command, std::string_view rest);
  bool actByMouse(const std::string& command, std::string_view rest);
  bool raiseEvent(const std::string& command, std::string_view rest);
  bool look(const std::string& command, std::string_view rest);
  bool lookAtLayout(const std::string& command, std::string_view rest);

  void answer(std::string_view rest);
  void pressKey(std::string_view name);
  void choose(std::string_view rest);
  void clickCell(std::string_view rest);
  void setPaper(std::string_view rest);
  void raiseButton(std::string_view rest);
  void setProperty(std::string_view rest);
  void printPopups();

  [[nodiscard]] const UserControl& visibleScreen() const;
  [[nodiscard]] const UserControl& screenFor(std::string_view& name) const;
  [[nodiscard]] Control& control(std::string_view name) const;
  template <typename Kind>
  Kind& controlOf(std::string_view name) const;
  [[nodiscard]] const Control& anyControl(std::string_view name) const;
  [[nodiscard]] const Control* onAnyScreen(std::string_view name) const;
  [[nodiscard]] const UserControl& screenOf(std::string_view name) const;
  [[nodiscard]] const Grid& anyGrid(std::string_view name) const;

  DriveHost& host_;
  std::ostream& out_;
  DriveOptions options_;
  std::unique_ptr<DriveSite> site_;
  EventTap events_;
  std::unique_ptr<Calculator> calculator_;
  DepCalcCont& container_;
  std::unique_ptr<Hands> hands_;
};

}  // namespace depcalc::drive
