// Help ends with the screen it was opened on.
#pragma once

#include <QObject>

#include "DepCalc/dep_calc_cont.h"
#include "desktop/widgets/surface.h"

namespace depcalc::desktop {

/// The calculator leaves its help popups open when another screen comes up, where they explain
/// fields that are no longer there. The desktop then closes them, as a click on their crosses
/// would.
class HelpCloser {
 public:
  /// Both live longer than this.
  HelpCloser(DepCalcCont& container, Surface& surface);

 private:
  void look();
  void close();

  DepCalcCont& container_;
  Surface& surface_;
  const UserControl* screen_ = nullptr;  ///< the one that was shown last
  QObject listener_;
};

}  // namespace depcalc::desktop
