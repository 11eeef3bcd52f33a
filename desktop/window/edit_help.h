// Edit for assets that the calculator has not read to their end.
#pragma once

#include "DepCalc/dep_calc_cont.h"
#include "desktop/widgets/surface.h"
#include "register/dep_calc_view.h"

namespace depcalc::desktop {

/// After a start and after a deletion the calculator's current record is a blank one, and Edit
/// opens a blank form for it, whatever asset is selected. Only an asset that the register reads to
/// its end makes the record one of the register's; of assets that make up the register's span in
/// full years, and of those saved without comparing, none does.
///
/// A user gets past this with New, View All and another click on the asset. Where it is needed, the
/// desktop does just that before Edit acts, unseen. A blank record is one that nobody has edited,
/// so nothing is asked and nothing is lost, and nothing is written.
class EditHelp {
 public:
  /// All of them live as long as this does, or longer.
  EditHelp(DepCalcCont& container, Surface& surface);

 private:
  /// Returns whether the register shows, as it did.
  bool help();
  [[nodiscard]] bool isNeeded() const;
  void takeTheWayRound(int row, int column);

  DepCalcCont& container_;
  Surface& surface_;
  DepCalcView* view_;
  Control* view_all_tab_ = nullptr;
};

}  // namespace depcalc::desktop
