// How large texts are where no fonts are at hand.
#pragma once

#include "reports/pages/paper.h"

namespace depcalc {

/// By the widths of DejaVu Sans, one of the widest fonts in use: whoever shows the text in another
/// one needs less room. Letters that are no ASCII count as wide as the widest of those.
class SvgMeasures final : public PaperMeasures {
 public:
  [[nodiscard]] double width(std::string_view text, PaperFont font) const override;
  [[nodiscard]] double lineHeight(PaperFont font) const override;
  /// From the top of a line to where its letters stand.
  [[nodiscard]] static double ascent(PaperFont font);
};

}  // namespace depcalc
