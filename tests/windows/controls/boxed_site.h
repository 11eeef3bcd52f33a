// What surrounds a calculator on Windows that is driven by a script.
#pragma once

#include <functional>
#include <memory>

#include "tests/drive/drive_site.h"
#include "tests/windows/controls/paper_check.h"
#include "windows/controls/windows_site.h"

namespace depcalc::testing {

/// Prints what a user notices, shows the user real boxes, and prints into metafiles, too. What was
/// wrong with those is a line "trouble: …", which no session expects.
class BoxedSite : public drive::DriveSite {
 public:
  BoxedSite(std::ostream& out, Date today, std::function<HWND()> owner);

  BoxAnswer showBox(const MessageBox& box) override;
  Printer& systemPrinter() override;

 private:
  BoxAnswer answerFor(const MessageBox& box);
  void complain(const std::string& what) { out_ << "trouble: " << what << '\n'; }

  std::ostream& out_;
  native::WindowsSite boxes_;
  std::unique_ptr<TwicePrinted> printer_;
};

}  // namespace depcalc::testing
