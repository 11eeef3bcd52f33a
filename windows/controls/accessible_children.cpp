#include "windows/controls/accessible_children.h"

#include <oleacc.h>

#include "controls/picture_button.h"
#include "controls/user_control.h"
#include "windows/controls/grid_window.h"

namespace depcalc::native {
namespace {

bool isPressedTwin(const Control& control) {
  return control.kind() == ControlKind::pictureButton &&
         static_cast<const PictureButton&>(control).under() != nullptr;
}

/// Of a button and its pressed picture only the button is one.
std::vector<Control*> controlsOn(Control& page) {
  std::vector<Control*> found;
  if (page.kind() != ControlKind::userControl) return found;
  for (Control* child : static_cast<UserControl&>(page).children()) {
    if (child->visible() && !isPressedTwin(*child)) found.push_back(child);
  }
  return found;
}

}  // namespace

AccessibleChildren::AccessibleChildren(const ControlWindow& window)
    : window_(window),
      grid_(window.control().kind() == ControlKind::grid ? &static_cast<Grid&>(window.control())
                                                         : nullptr),
      controls_(controlsOn(window.control())) {}

long AccessibleChildren::count() const {
  if (grid_ == nullptr) return static_cast<long>(controls_.size());
  return static_cast<long>(grid_->rows()) * grid_->columns();
}

AccessibleElement AccessibleChildren::operator[](long number) const {
  if (number == CHILDID_SELF) return AccessibleElement(window_.control());
  const long index = number - 1;
  if (grid_ == nullptr) return AccessibleElement(*controls_[static_cast<std::size_t>(index)]);
  const int columns = grid_->columns();
  return {*grid_, static_cast<int>(index / columns), static_cast<int>(index % columns)};
}

std::optional<AccessibleElement> AccessibleChildren::find(const VARIANT& number) const {
  if (number.vt != VT_I4 || number.lVal < 0 || number.lVal > count()) return std::nullopt;
  return (*this)[number.lVal];
}

ControlWindow* AccessibleChildren::windowOf(const AccessibleElement& element) const {
  return element.isCell() ? nullptr : window_.surface().window(element.control());
}

RECT AccessibleChildren::areaOf(const AccessibleElement& element) const {
  RECT area{};
  if (const ControlWindow* const own = windowOf(element)) {
    GetWindowRect(own->handle(), &area);
    return area;
  }
  area = element.isCell()
             ? static_cast<const GridWindow&>(window_).cellArea(element.row(), element.column())
             : window_.areaOf(element.control());
  MapWindowPoints(window_.handle(), nullptr, reinterpret_cast<POINT*>(&area), 2);
  return area;
}

std::optional<long> AccessibleChildren::focused() const {
  const Surface& surface = window_.surface();
  const InputControl* const focused = surface.stage().focused();
  if (focused == &window_.control()) return CHILDID_SELF;
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const Control& control = *controls_[i];
    const bool has_focus = &control == focused && surface.window(control) != nullptr;
    if (has_focus || &control == surface.keysAt()) return static_cast<long>(i) + 1;
  }
  return std::nullopt;
}

std::optional<long> AccessibleChildren::selected() const {
  if (grid_ == nullptr) return std::nullopt;
  return numberOfCurrent(*grid_);
}

std::optional<long> AccessibleChildren::under(POINT at) const {
  for (long number = count(); number >= 0; --number) {
    const RECT area = areaOf((*this)[number]);
    if (PtInRect(&area, at) != FALSE) return number;
  }
  return std::nullopt;
}

long numberOfCurrent(const Grid& grid) { return 1 + grid.row() * grid.columns() + grid.column(); }

}  // namespace depcalc::native
