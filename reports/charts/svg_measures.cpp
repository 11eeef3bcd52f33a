#include "reports/charts/svg_measures.h"

#include <array>
#include <cstdint>

#include "reports/pages/paper_tones.h"

namespace depcalc {
namespace {

constexpr double twips_per_point = 20;
constexpr double line_height = 1.3;  ///< in sizes of the letters
constexpr double ascent_part = 1.0;

/// Thousandths of the letters' size, from the blank to the tilde.
using Widths = std::array<std::uint16_t, 95>;
constexpr Widths plain{
    318, 401, 460, 838, 636, 950, 780, 275, 390, 390, 500, 838, 318, 361,  318, 337, 636, 636, 636,
    636, 636, 636, 636, 636, 636, 636, 337, 337, 838, 838, 838, 531, 1000, 684, 686, 698, 770, 632,
    575, 775, 752, 295, 295, 656, 557, 863, 748, 787, 603, 787, 695, 635,  611, 732, 684, 989, 685,
    611, 685, 390, 337, 390, 838, 500, 500, 613, 635, 550, 635, 615, 352,  635, 634, 278, 278, 579,
    278, 974, 634, 612, 635, 635, 411, 521, 392, 634, 592, 818, 592, 592,  525, 636, 337, 636, 838};
constexpr Widths bold{348, 456, 521, 838, 696,  1002, 872, 306,  457, 457, 523, 838, 380, 415,
                      380, 365, 696, 696, 696,  696,  696, 696,  696, 696, 696, 696, 400, 400,
                      838, 838, 838, 580, 1000, 774,  762, 734,  830, 683, 683, 821, 837, 372,
                      372, 775, 637, 995, 837,  850,  733, 850,  770, 720, 682, 812, 774, 1103,
                      771, 724, 725, 457, 365,  457,  838, 500,  500, 675, 716, 593, 716, 678,
                      435, 716, 712, 343, 343,  665,  343, 1042, 712, 687, 716, 716, 493, 595,
                      478, 712, 652, 924, 645,  652,  582, 712,  365, 712, 838};
constexpr double widest = 1100;

bool continuesLetter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

}  // namespace

double SvgMeasures::width(std::string_view text, PaperFont font) const {
  const PaperLetters letters = lettersOf(font);
  const Widths& widths = letters.bold ? bold : plain;
  double width = 0;
  for (const char c : text) {
    if (continuesLetter(c)) continue;
    width += c >= ' ' && c <= '~' ? widths[static_cast<std::size_t>(c - ' ')] : widest;
  }
  return width / 1000 * letters.points * twips_per_point;
}

double SvgMeasures::lineHeight(PaperFont font) const {
  return line_height * lettersOf(font).points * twips_per_point;
}

double SvgMeasures::ascent(PaperFont font) {
  return ascent_part * lettersOf(font).points * twips_per_point;
}

}  // namespace depcalc
