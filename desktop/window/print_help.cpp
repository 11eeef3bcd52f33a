#include "desktop/window/print_help.h"

#include <QWidget>

#include "desktop/window/missing_assets.h"

namespace depcalc::desktop {

PrintHelp::PrintHelp(Calculator& calculator, DesktopSite& site, QWidget& window)
    : calculator_(calculator), site_(site), window_(window) {
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
  return printsAllTheSame(where, QObject::tr("Cancel"), &window_);
}

}  // namespace depcalc::desktop
