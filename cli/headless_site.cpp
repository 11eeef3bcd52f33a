#include "cli/headless_site.h"

#include "values/runtime_error.h"

namespace depcalc {

BoxAnswer HeadlessSite::showBox(const MessageBox& box) {
  return box.buttons == BoxButtons::ok ? BoxAnswer::ok : BoxAnswer::no;
}

Printer& HeadlessSite::systemPrinter() {
  if (printer_ == nullptr) throw RuntimeError(482, "Printer error");
  return *printer_;
}

}  // namespace depcalc
