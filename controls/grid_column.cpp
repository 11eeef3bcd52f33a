#include "controls/grid_column.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "values/runtime_error.h"

namespace depcalc {
namespace {

constexpr unsigned alignment_bits = 4;
constexpr unsigned alignment_mask = (1U << alignment_bits) - 1;

constexpr std::uint8_t styled(CellAlignment alignment, CellKind kind) {
  return static_cast<std::uint8_t>(static_cast<unsigned>(alignment) | static_cast<unsigned>(kind)
                                                                          << alignment_bits);
}

}  // namespace

void GridColumn::resize(std::size_t rows) {
  if (rows < ends_.size()) texts_.resize(start(rows));
  ends_.resize(rows, static_cast<std::uint32_t>(texts_.size()));
  styles_.resize(rows, styled(alignment_, CellKind::text));
}

std::string_view GridColumn::text(std::size_t row) const {
  return std::string_view(texts_).substr(start(row), ends_[row] - start(row));
}

bool GridColumn::setText(std::size_t row, std::string_view text) {
  const std::string_view old = this->text(row);
  if (old == text) return false;
  const std::size_t room = std::numeric_limits<std::uint32_t>::max() - texts_.size();
  if (text.size() > room) throw RuntimeError::outOfMemory();
  const auto longer = static_cast<std::uint32_t>(text.size() - old.size());  // modulo 2^32
  texts_.replace(start(row), old.size(), text);
  for (std::size_t below = row; below < ends_.size(); ++below) ends_[below] += longer;
  return true;
}

CellAlignment GridColumn::alignment(std::size_t row) const {
  return static_cast<CellAlignment>(styles_[row] & alignment_mask);
}

CellKind GridColumn::kind(std::size_t row) const {
  return static_cast<CellKind>(styles_[row] >> alignment_bits);
}

bool GridColumn::setAlignment(std::size_t row, CellAlignment alignment) {
  const std::uint8_t style = styled(alignment, kind(row));
  return std::exchange(styles_[row], style) != style;
}

bool GridColumn::setKind(std::size_t row, CellKind kind) {
  const std::uint8_t style = styled(alignment(row), kind);
  return std::exchange(styles_[row], style) != style;
}

bool GridColumn::setAlignment(CellAlignment alignment) {
  alignment_ = alignment;
  bool differed = false;
  for (std::size_t row = 0; row < styles_.size(); ++row) differed |= setAlignment(row, alignment);
  return differed;
}

}  // namespace depcalc
