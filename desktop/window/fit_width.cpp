#include "desktop/window/fit_width.h"

#include <algorithm>
#include <cmath>

#include "controls/page_style.h"
#include "desktop/widgets/scale.h"
#include "help/dep_calc_popup.h"

namespace depcalc::desktop {
namespace {

constexpr int usual_height = 7650;  // twips: a form and a little more
constexpr int twips_per_point = 20;

/// The zoom that is no larger and gives the usual text a whole number of pixels: fonts have no
/// others, and of a text that is larger than its label the last letter would be cut.
int crisp(int zoom, double pixels_per_twip) {
  const double text = style::body_points * twips_per_point * pixels_per_twip;
  const double pixels = std::floor(text * zoom / 100 + 1e-9);
  const int found = static_cast<int>(std::ceil(100 * pixels / text - 1e-9));
  return found <= zoom ? found : crisp(zoom - 1, pixels_per_twip);
}

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
  int zoom = Fit(fitting, fitting.room.width()).zoom();
  const double height = fitting.with_help.height * fitting.pixels_per_twip * zoom / 100;
  if (height > fitting.room.height()) {
    zoom = Fit(fitting, fitting.room.width() - fitting.scroll_bar).zoom();
  }
  return std::max(minimum_zoom, crisp(zoom, fitting.pixels_per_twip));
}

}  // namespace depcalc::desktop
