// One column of a grid, packed: its texts behind each other, not an object per cell.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/grid_picture.h"

namespace depcalc {

/// Row numbers are the caller's to check.
class GridColumn {
 public:
  void resize(std::size_t rows);

  /// Valid until the column changes.
  [[nodiscard]] std::string_view text(std::size_t row) const;
  /// Returns whether the text differed.
  bool setText(std::size_t row, std::string_view text);

  [[nodiscard]] CellAlignment alignment(std::size_t row) const;
  [[nodiscard]] CellKind kind(std::size_t row) const;
  /// Return whether anything differed.
  bool setAlignment(std::size_t row, CellAlignment alignment);
  bool setKind(std::size_t row, CellKind kind);
  /// All rows, those to come included.
  bool setAlignment(CellAlignment alignment);

  int width = 0;
  std::int32_t data = 0;

 private:
  [[nodiscard]] std::uint32_t start(std::size_t row) const { return row == 0 ? 0 : ends_[row - 1]; }

  std::string texts_;
  std::vector<std::uint32_t> ends_;   // where each row's text ends
  std::vector<std::uint8_t> styles_;  // the kind above four bits of alignment
  CellAlignment alignment_ = CellAlignment::leftCenter;
};

}  // namespace depcalc
