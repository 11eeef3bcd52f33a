#include "desktop/window/schedule_printing.h"

namespace depcalc::desktop {

std::unique_ptr<Printer> SchedulePrinting::printer() const {
  return makeSystemPrinter({settings_.printer(), settings_.paperSize()}, &window_);
}

ScheduleJob SchedulePrinting::jobOf(Calculator& calculator) const {
  return {[&calculator](Printer& printer) { return calculator.missingOnPaper(printer); },
          [&calculator](Printer& printer) { calculator.print(printer); }, doors_.report_all};
}

void SchedulePrinting::print() {
  const auto printed = doors_.calculator();
  printed->start();
  const auto chosen =
      printThroughDialog({settings_.printer(), settings_.paperSize()}, jobOf(*printed), &window_);
  if (!chosen) return;
  if (!chosen->printer.isEmpty()) settings_.setPrinter(chosen->printer);
  if (chosen->paper) settings_.setPaperSize(*chosen->paper);
}

void SchedulePrinting::preview() {
  const auto printed = doors_.calculator();
  printed->start();
  showPrintPreview(settings_.paperSize(), jobOf(*printed), &window_);
}

}  // namespace depcalc::desktop
