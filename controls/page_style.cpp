#include "controls/page_style.h"

#include "controls/colour_scheme.h"

namespace depcalc::style {
namespace {

void paint(Label& label, Colour text, Colour background) {
  label.setForeColour(text);
  label.setBackColour(background);
}

void tab(Label& label) {
  label.setRole(LabelRole::tab);
  label.setFont({body_points, true});
  label.setAlignment(TextAlignment::center);
}

}  // namespace

void caption(Label& label) {
  label.setFont({body_points});
  paint(label, scheme::dark_red, scheme::cream);
}

void helpLink(Label& label) {
  caption(label);
  label.setUnderline(true);
  label.setRole(LabelRole::link);
}

void pageHelp(Label& label) {
  helpLink(label);
  label.setRole(LabelRole::page_help);
}

void title(Label& label) {
  label.setRole(LabelRole::title);
  label.setFont({title_points, true});
  paint(label, scheme::dark_red, scheme::cream);
}

void currentTab(Label& label) {
  tab(label);
  paint(label, scheme::cream, scheme::dark_red);
}

void otherTab(Label& label) {
  tab(label);
  paint(label, scheme::dark_red, scheme::tan);
}

void frame(Shape& shape, int height) {
  shape.setPlace({frame_left, frame_top, frame_width, height});
  shape.setRounded(true);
  shape.setForeColour(scheme::dark_red);
  shape.setBackColour(scheme::cream);
}

}  // namespace depcalc::style
