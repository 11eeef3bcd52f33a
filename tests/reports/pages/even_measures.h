// Letters of one width, so that tests can reckon with them.
#pragma once

#include "reports/pages/paper.h"
#include "values/text.h"

namespace depcalc::testing {

class EvenMeasures final : public PaperMeasures {
 public:
  [[nodiscard]] double width(std::string_view text, PaperFont font) const override {
    return static_cast<double>(characterCount(text)) * (font == PaperFont::title ? 180 : 100);
  }
  [[nodiscard]] double lineHeight(PaperFont font) const override {
    return font == PaperFont::title ? 360 : 200;
  }
};

}  // namespace depcalc::testing
