#include "controls/label.h"

#include "controls/stage.h"

namespace depcalc {

Label::Label(UserControl& parent, std::string name, std::string text)
    : WithFont(parent, ControlKind::label, std::move(name)), text_(std::move(text)) {}

void Label::setText(std::string text) {
  if (assign(text_, std::move(text), Aspect::text)) fit();
}

void Label::setWordWrap(bool wrap) {
  if (assign(word_wrap_, wrap, Aspect::font)) fit();
}

void Label::setAutoSize(bool follow) {
  auto_size_ = follow;
  fit();
}

void Label::fontSet(bool differs) {
  if (differs) fit();
}

void Label::setPlace(const Place& place) {
  const bool wider_or_narrower = place.width != width();
  Control::setPlace(place);
  if (wider_or_narrower && word_wrap_) fit();
}

void Label::fit() {
  if (!auto_size_) return;
  const TextExtent extent = stage().site().textExtent(text_, font(), word_wrap_ ? width() : 0);
  Control::setPlace({left(), top(), word_wrap_ ? width() : extent.width, extent.height});
}

}  // namespace depcalc
