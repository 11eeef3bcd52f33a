#include "desktop/window/print_help.h"

#include <QWidget>
#include <utility>

#include "desktop/window/missing_assets.h"

namespace depcalc::desktop {

PrintHelp::PrintHelp(Calculator& calculator, DesktopSite& site, QWidget& window,
                     std::function<void()> report_all)
    : calculator_(calculator), site_(site), window_(window), report_all_(std::move(report_all)) {
  DepCalcView* const view = calculator.assetRegister();
  if (view == nullptr) return;
  Handler& released = view->PrintButton.normal.onMouseUp;
  released = [this, print = std::move(released)] { releasePrint(print); };
}

void PrintHelp::releasePrint(const Handler& print) {
  calculator_.assetRegister()->PrintButton.pressed.hide();
  if (prepare()) {
    print();
    calculator_.readCollapsedRegister();
  }
  site_.dropPrinter();
}

bool PrintHelp::prepare() {
  Printer* const printer = site_.takePrinter();
  if (printer == nullptr) return false;
  const QString note = missingAssetsNote(calculator_.assetRegister()->AssetViewTable, *printer);
  if (note.isEmpty()) return true;
  const QString where = note + u' ' + QObject::tr("File > Print lets you choose the paper.");
  const AboutMissing wanted = askAboutMissing(where, QObject::tr("Cancel"), &window_);
  if (wanted == AboutMissing::report) report_all_();
  return wanted == AboutMissing::print;
}

}  // namespace depcalc::desktop
