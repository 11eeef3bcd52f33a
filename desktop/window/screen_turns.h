// What the desktop does when another screen comes up.
#pragma once

#include <QObject>
#include <vector>

#include "DepCalc/dep_calc_cont.h"
#include "desktop/widgets/surface.h"
#include "register/dep_calc_view.h"

namespace depcalc::desktop {

/// Every screen comes up from its top left. The register comes up with nothing selected; where the
/// current record is one of its assets, the one just saved for example, the desktop clicks on it.
/// All that such a click does is to give the record the index that it has.
class ScreenTurns : public QObject {
 public:
  /// All of them live as long as this does, or longer.
  ScreenTurns(DepCalcCont& container, Surface& surface);

 private:
  void watch(UserControl& screen);
  void selectCurrentAsset();

  DepCalcCont& container_;
  Surface& surface_;
  DepCalcView* view_;
  bool register_came_up_ = false;
  std::vector<Observation> observations_;
};

}  // namespace depcalc::desktop
