// What follows what down the pages of a report.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "reports/pages/paper.h"

namespace depcalc {

enum class FlowKind : std::uint8_t {
  title,
  lead,
  gap,           ///< white space, dropped at the top of a page
  tableCaption,  ///< what one table of several is about
  captions,      ///< of the columns; repeated where the table goes on
  groupName,     ///< repeated where the group goes on
  row,
  subtotal,
  total,
  chart,  ///< as high as its lines of text
  note,
  alarm,  ///< what does not add up
};

[[nodiscard]] PaperFont fontOf(FlowKind kind);
/// Space above the first line of a block, and as much below the last, in twips.
[[nodiscard]] double paddingOf(FlowKind kind);

struct FlowBlock {
  FlowKind kind = FlowKind::gap;
  bool glued = false;  ///< stands on the page of the block before it
  std::uint32_t lines = 1;
  std::uint32_t table = 0;
  std::uint32_t source = 0;  ///< the row, the group or the paragraph that it shows
};

/// A block, or some of its lines, on a page.
struct PlacedBlock {
  FlowBlock block;
  double y = 0;
  double height = 0;
  std::uint32_t first_line = 0;
  std::uint32_t lines = 0;
  bool repeated = false;
};

/// Fills pages of one height from the top, block after block. Blocks that are glued together go to
/// the next page together where they have room on one; a block that is higher than a page is
/// continued behind any of its lines.
class PageFlow {
 public:
  /// `height` is in twips.
  PageFlow(double height, const PaperMeasures& measures);

  void add(const FlowBlock& block);
  /// To be called behind the last block.
  void finish();

  [[nodiscard]] const std::vector<std::vector<PlacedBlock>>& pages() const { return pages_; }

 private:
  [[nodiscard]] double heightOf(const FlowBlock& block, std::uint32_t lines) const;
  [[nodiscard]] bool hasRoomFor(double height) const;
  [[nodiscard]] bool startsHere(double height) const;
  void placeUnit();
  void place(const FlowBlock& block);
  void placeInPieces(const FlowBlock& block);
  void put(const FlowBlock& block, std::uint32_t first_line, std::uint32_t lines, bool repeated);
  void nextPage(const FlowBlock& next);
  [[nodiscard]] bool onlyRepeats() const;

  double height_;
  const PaperMeasures& measures_;
  std::vector<FlowBlock> unit_;
  std::vector<std::vector<PlacedBlock>> pages_{1};
  double y_ = 0;
  std::optional<FlowBlock> captions_;  ///< of the table that is being placed
  std::optional<FlowBlock> group_;     ///< that is being placed
};

}  // namespace depcalc
