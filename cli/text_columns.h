// Texts in columns of equal width, for people.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "cli/output.h"
#include "values/display_format.h"
#include "values/text.h"

namespace depcalc {

/// Writes the cells of `rows` below each other, those of numbers to the right.
template <std::size_t Columns>
void writeColumns(const std::vector<std::array<std::string, Columns>>& rows,
                  const std::array<bool, Columns>& is_number, Output& out) {
  std::array<std::size_t, Columns> widths{};
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < Columns; ++i) {
      widths[i] = std::max(widths[i], characterCount(row[i]));
    }
  }
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < Columns; ++i) {
      line += i == 0 ? "" : "  ";
      line += is_number[i] ? rightAligned(row[i], widths[i]) : padded(row[i], widths[i]);
    }
    out.write(line.erase(line.find_last_not_of(' ') + 1) + '\n');
  }
}

/// "1 asset", "2 assets".
inline std::string counted(std::size_t count, std::string_view what) {
  std::string text = formatWhole(static_cast<double>(count));
  text.append(" ").append(what).append(count == 1 ? "" : "s");
  return text;
}

}  // namespace depcalc
