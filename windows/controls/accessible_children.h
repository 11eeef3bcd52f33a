// How assistive tools find their way: what is inside of what, and where on the screen.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <optional>
#include <vector>

#include "windows/controls/accessible_element.h"
#include "windows/controls/control_window.h"

namespace depcalc::native {

/// The elements of one window by their numbers. CHILDID_SELF is the window's own; from 1 on come
/// the controls of a page, in the order of Tab, or the cells of a grid, row by row. To be made
/// anew for each question, since controls come and go.
class AccessibleChildren {
 public:
  explicit AccessibleChildren(const ControlWindow& window);

  [[nodiscard]] long count() const;
  [[nodiscard]] AccessibleElement operator[](long number) const;
  /// Nothing where `number` is none of them.
  [[nodiscard]] std::optional<AccessibleElement> find(const VARIANT& number) const;
  /// Of an element that is not only drawn; null where there is none.
  [[nodiscard]] ControlWindow* windowOf(const AccessibleElement& element) const;
  /// In pixels of the screen.
  [[nodiscard]] RECT areaOf(const AccessibleElement& element) const;

  [[nodiscard]] std::optional<long> focused() const;
  /// The current cell of a grid.
  [[nodiscard]] std::optional<long> selected() const;
  /// The one at a point of the screen.
  [[nodiscard]] std::optional<long> under(POINT at) const;

 private:
  const ControlWindow& window_;
  Grid* grid_;                      ///< where it is the window of one
  std::vector<Control*> controls_;  ///< else
};

/// The number of the current cell.
[[nodiscard]] long numberOfCurrent(const Grid& grid);

}  // namespace depcalc::native
