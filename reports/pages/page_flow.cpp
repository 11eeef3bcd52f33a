#include "reports/pages/page_flow.h"

#include <algorithm>
#include <cmath>

namespace depcalc {
namespace {

constexpr double usual_padding = 50;      // twips
constexpr double latest_start = 2.0 / 3;  ///< of a page
constexpr double rounding_slack = 0.01;   // twips

bool isOfATable(FlowKind kind) {
  return kind == FlowKind::groupName || kind == FlowKind::row || kind == FlowKind::subtotal ||
         kind == FlowKind::total;
}

bool isOfAGroup(FlowKind kind) { return kind == FlowKind::row || kind == FlowKind::subtotal; }

}  // namespace

PaperFont fontOf(FlowKind kind) {
  switch (kind) {
    case FlowKind::title:
      return PaperFont::title;
    case FlowKind::lead:
      return PaperFont::lead;
    case FlowKind::tableCaption:
    case FlowKind::captions:
      return PaperFont::heading;
    case FlowKind::groupName:
    case FlowKind::subtotal:
    case FlowKind::total:
    case FlowKind::alarm:
      return PaperFont::strong;
    case FlowKind::note:
      return PaperFont::small;
    default:
      return PaperFont::body;
  }
}

double paddingOf(FlowKind kind) {
  switch (kind) {
    case FlowKind::title:
    case FlowKind::lead:
    case FlowKind::note:
      return 0;
    case FlowKind::captions:
      return 2 * usual_padding;
    default:
      return usual_padding;
  }
}

PageFlow::PageFlow(double height, const PaperMeasures& measures)
    : height_(height), measures_(measures) {}

double PageFlow::heightOf(const FlowBlock& block, std::uint32_t lines) const {
  return lines * measures_.lineHeight(fontOf(block.kind)) + 2 * paddingOf(block.kind);
}

bool PageFlow::hasRoomFor(double height) const { return y_ + height <= height_ + rounding_slack; }

void PageFlow::add(const FlowBlock& block) {
  if (!block.glued) placeUnit();
  unit_.push_back(block);
}

void PageFlow::finish() { placeUnit(); }

void PageFlow::placeUnit() {
  if (unit_.empty()) return;
  double height = 0;
  for (const FlowBlock& block : unit_) height += heightOf(block, block.lines);
  if (!hasRoomFor(height) && !startsHere(height)) nextPage(unit_.front());
  for (const FlowBlock& block : unit_) place(block);
  unit_.clear();
}

/// Whether what does not end on this page had better begin on it all the same: the next one would
/// not hold it either.
bool PageFlow::startsHere(double height) const {
  return onlyRepeats() || (height > height_ && y_ < height_ * latest_start);
}

/// Of a unit that is higher than a page the blocks go on one by one.
void PageFlow::place(const FlowBlock& block) {
  if (block.kind == FlowKind::gap && onlyRepeats()) return;
  const double height = heightOf(block, block.lines);
  if (!hasRoomFor(height) && !startsHere(height)) nextPage(block);
  hasRoomFor(height) ? put(block, 0, block.lines, false) : placeInPieces(block);
  if (block.kind == FlowKind::captions) captions_ = block;
  if (block.kind == FlowKind::captions || block.kind == FlowKind::subtotal) group_.reset();
  if (block.kind == FlowKind::groupName) group_ = block;
}

void PageFlow::placeInPieces(const FlowBlock& block) {
  const double line = measures_.lineHeight(fontOf(block.kind));
  for (std::uint32_t done = 0; done < block.lines;) {
    if (done > 0) nextPage(block);
    const double room = height_ - y_ - 2 * paddingOf(block.kind);
    const auto fitting = static_cast<std::uint32_t>(std::max(1.0, std::floor(room / line)));
    const std::uint32_t lines = std::min(fitting, block.lines - done);
    put(block, done, lines, false);
    done += lines;
  }
}

void PageFlow::put(const FlowBlock& block, std::uint32_t first_line, std::uint32_t lines,
                   bool repeated) {
  const double height = heightOf(block, lines);
  pages_.back().push_back({block, y_, height, first_line, lines, repeated});
  y_ += height;
}

void PageFlow::nextPage(const FlowBlock& next) {
  pages_.emplace_back();
  y_ = 0;
  if (!isOfATable(next.kind)) return;
  if (captions_) put(*captions_, 0, captions_->lines, true);
  if (!group_ || !isOfAGroup(next.kind)) return;
  FlowBlock name = *group_;
  name.lines = 1;
  put(name, 0, 1, true);
}

bool PageFlow::onlyRepeats() const {
  return std::all_of(pages_.back().begin(), pages_.back().end(),
                     [](const PlacedBlock& placed) { return placed.repeated; });
}

}  // namespace depcalc
