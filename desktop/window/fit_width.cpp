#include "desktop/window/fit_width.h"

#include <algorithm>

#include "controls/page_style.h"
#include "desktop/widgets/scale.h"
#include "help/dep_calc_popup.h"

namespace depcalc::desktop {
namespace {

constexpr int usual_height = 7650;  // twips: a form and a little more

class Fit {
 public:
  Fit(const Fitting& fitting, int width) : fitting_(fitting), width_(width) {}

  [[nodiscard]] int zoom() const {
    const int usual = usualZoom();
    const int needed = percent(width_, fitting_.with_help.width);
    if (needed >= usual) return usual;
    const bool readable = percent(width_, fitting_.screen.width) >= minimum_zoom;
    return readable ? std::max(needed, minimum_zoom) : usual;
  }

 private:
  [[nodiscard]] int percent(int pixels, int twips) const {
    return twips == 0 ? maximum_zoom
                      : static_cast<int>(100 * pixels / (fitting_.pixels_per_twip * twips));
  }

  /// Text grows only where nothing needs to be scrolled for it.
  [[nodiscard]] int usualZoom() const {
    const int beside = percent(width_, style::page_width + DepCalcPopup::greatest_width);
    const int alone = percent(width_, style::page_width);
    const int wide = beside >= 100 ? beside : std::min(100, alone);
    const int high = std::max(100, percent(fitting_.room.height(), usual_height));
    return std::clamp(std::min(wide, high), minimum_zoom, maximum_zoom);
  }

  const Fitting& fitting_;
  int width_;
};

}  // namespace

int fittingZoom(const Fitting& fitting) {
  const int zoom = Fit(fitting, fitting.room.width()).zoom();
  const double height = fitting.with_help.height * fitting.pixels_per_twip * zoom / 100;
  if (height <= fitting.room.height()) return zoom;
  return Fit(fitting, fitting.room.width() - fitting.scroll_bar).zoom();
}

}  // namespace depcalc::desktop
