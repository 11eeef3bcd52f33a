// The Print button of the register, as the desktop has it.
#pragma once

#include <functional>

#include "desktop/site/desktop_site.h"
#include "desktop/window/calculator.h"

namespace depcalc::desktop {

/// Before the button acts, the printer (or, where there is none, the PDF file) is asked for and
/// what the paper would lack is said. Whoever cancels there is told nothing more: the press counts
/// as abandoned. To the calculator a printer that is not given is one that failed.
///
/// A print run that failed leaves the rows and columns of other pages collapsed; the register is
/// then read again.
class PrintHelp {
 public:
  /// All of them live as long as this does, or longer; it lives as long as the calculator.
  /// `report_all` shows the report that prints every asset.
  PrintHelp(Calculator& calculator, DesktopSite& site, QWidget& window,
            std::function<void()> report_all);

 private:
  void releasePrint(const Handler& print);
  [[nodiscard]] bool prepare();

  Calculator& calculator_;
  DesktopSite& site_;
  QWidget& window_;
  std::function<void()> report_all_;
};

}  // namespace depcalc::desktop
