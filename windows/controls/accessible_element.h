// What assistive tools are told of a control, or of a cell of a grid.
#pragma once

#include <string>

#include "controls/grid.h"
#include "windows/controls/surface.h"

namespace depcalc::native {

/// Texts are empty where there is nothing to say.
class AccessibleElement {
 public:
  explicit AccessibleElement(Control& control) : control_(&control) {}
  AccessibleElement(Grid& grid, int row, int column)
      : control_(&grid), row_(row), column_(column) {}

  /// The grid, where it is a cell.
  [[nodiscard]] Control& control() const { return *control_; }
  [[nodiscard]] bool isCell() const { return row_ >= 0; }
  [[nodiscard]] int row() const { return row_; }
  [[nodiscard]] int column() const { return column_; }

  /// A ROLE_SYSTEM_… of the system's.
  [[nodiscard]] long role() const;
  /// Of a cell the captions of its row and column; a caption's own text.
  [[nodiscard]] std::string name() const;
  [[nodiscard]] std::string value() const;
  [[nodiscard]] std::string description() const;
  /// STATE_SYSTEM_… of the system's. `surface` knows which button or link has the keys.
  [[nodiscard]] long state(const Surface& surface) const;
  /// The key that clicks it from wherever the focus is.
  [[nodiscard]] std::string shortcut() const;

  /// Whether a click does something.
  [[nodiscard]] bool isClicked() const;
  /// What the click does, in a word.
  [[nodiscard]] std::string defaultAction() const;
  void click(User& user) const;

 private:
  [[nodiscard]] Grid& grid() const { return static_cast<Grid&>(*control_); }
  [[nodiscard]] long stateOfCell() const;

  Control* control_;
  int row_ = -1;
  int column_ = -1;
};

}  // namespace depcalc::native
