// What labels, text boxes, lists and options share.
#pragma once

#include "controls/font.h"
#include "controls/observation.h"

namespace depcalc {

/// Adds a font and an alignment to `Base`, a kind of Control.
template <typename Base>
class WithFont : public Base {
 public:
  [[nodiscard]] const Font& font() const { return font_; }
  void setFont(const Font& font) { fontSet(this->assign(font_, font, Aspect::font)); }
  void setBold(bool bold) { setFont({font_.size, bold, font_.underline}); }
  void setFontSize(double points) { setFont({points, font_.bold, font_.underline}); }
  void setUnderline(bool underline) { setFont({font_.size, font_.bold, underline}); }

  [[nodiscard]] TextAlignment alignment() const { return alignment_; }
  void setAlignment(TextAlignment alignment) { this->assign(alignment_, alignment, Aspect::font); }

 protected:
  using Base::Base;

 private:
  virtual void fontSet(bool /*differs*/) {}

  Font font_;
  TextAlignment alignment_ = TextAlignment::left;
};

}  // namespace depcalc
