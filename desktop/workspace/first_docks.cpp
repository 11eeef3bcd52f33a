#include "desktop/workspace/first_docks.h"

namespace depcalc::desktop {

FirstDocks firstDocks(int window, int page, int assets, int insight) {
  FirstDocks docks;
  docks.assets = window - assets >= page;
  docks.insight = docks.assets && window - assets - insight >= page * 5 / 6;
  return docks;
}

}  // namespace depcalc::desktop
