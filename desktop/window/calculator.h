// One company's calculator and the widgets that show it.
#pragma once

#include <memory>

#include "DepCalc/calculator_screens.h"
#include "DepCalc/deletion_watch.h"
#include "DepCalc/dep_calc_cont.h"
#include "desktop/host/desktop_application.h"
#include "desktop/site/desktop_site.h"
#include "desktop/widgets/page.h"
#include "desktop/widgets/surface.h"
#include "desktop/window/edit_help.h"
#include "desktop/window/help_closer.h"
#include "desktop/window/screen_turns.h"
#include "entry/dep_calc_ctl.h"
#include "register/dep_calc_view.h"

namespace depcalc::desktop {

/// From start-up to the end. No record in it outlives the company it was opened for.
class Calculator {
 public:
  Calculator(Site& site, std::shared_ptr<DesktopApplication> host, const Scale& scale,
             const Colours& colours);

  /// Runs the start-up, which may say why it cannot show anything.
  void start();
  void showOn(Page& page) { page.showControl(container_, surface_); }

  // The host takes the focus away for good. Only the steps of entering an asset hear of it: on the
  // register the current record may be blank and carry the selected asset's index, and a question
  // about it could only do harm.

  /// The field that has the focus validates, so that what was just typed counts. Returns whether it
  /// agreed.
  bool validateField();
  /// Whether the loss of the focus would ask about changes.
  [[nodiscard]] bool asksWhenLeft();
  /// The field has validated already.
  void loseFocus();

  void showMainHelp();
  /// Opens link `number` of the main help.
  void showHelpLink(int number);

  /// Prints the register as its Print button would.
  void print(Printer& printer);
  /// What that would leave out on this printer's paper, for the user to read; "" for nothing.
  [[nodiscard]] QString missingOnPaper(Printer& printer);
  /// A print run that failed leaves rows and columns of the register collapsed until it is read
  /// again. Where there are some, that happens now; the asset that was selected stays so.
  void readCollapsedRegister();

  [[nodiscard]] Surface& surface() { return surface_; }
  [[nodiscard]] Stage& stage() { return stage_; }
  [[nodiscard]] DepCalcCont& container() { return container_; }
  [[nodiscard]] DepCalcView* assetRegister();
  /// Where it shows; else null.
  [[nodiscard]] DepCalcCtl* entryForm();
  /// Saved assets; nothing before start-up and after a refusal.
  [[nodiscard]] std::optional<int> assetCount();
  /// The number of the saved asset that is shown, or selected in the register.
  [[nodiscard]] std::optional<int> currentAsset();
  /// Selects asset `number` in the register, where that shows, and brings it in sight.
  void selectAsset(int number);
  /// Shows the register, by the tab of the screen that shows; the field that has the focus
  /// validates first, and the calculator asks about changes. Returns whether it shows.
  bool goToRegister();

 private:
  [[nodiscard]] bool entersAnAsset();
  void showRegister();

  Stage stage_;
  CalculatorScreens screens_;
  DeletionWatch watched_screens_;
  DepCalcCont container_;
  Surface surface_;
  EditHelp edit_help_{container_, surface_};
  HelpCloser help_closer_{container_, surface_};
  ScreenTurns screen_turns_{container_, surface_};
};

}  // namespace depcalc::desktop
