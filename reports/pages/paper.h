// Printed pages as plain values: what stands where, for any toolkit to draw.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace depcalc {

enum class PaperFont : std::uint8_t {
  title,
  lead,     ///< what a report covers, below its title
  heading,  ///< captions of columns and tables
  body,
  strong,  ///< groups and sums
  small,   ///< notes, and the foot of a page
};

/// How large texts are, in twips (1,440 to the inch). Drawn texts are as large as measured ones.
class PaperMeasures {
 public:
  PaperMeasures() = default;
  PaperMeasures(const PaperMeasures&) = delete;
  PaperMeasures& operator=(const PaperMeasures&) = delete;
  virtual ~PaperMeasures() = default;

  [[nodiscard]] virtual double width(std::string_view text, PaperFont font) const = 0;
  [[nodiscard]] virtual double lineHeight(PaperFont font) const = 0;
};

/// The part of a page that can be printed on, in twips.
struct PaperArea {
  double width = 0;
  double height = 0;
};

enum class PaperTone : std::uint8_t {
  heading,  ///< behind the captions of columns
  group,    ///< behind the name of a group
  hairline,
  accent,
  // In charts.
  axis,
  mark,
  first_line,
  second_line,
  third_line,
  fourth_line,
};

/// From the area's top left corner, in twips. Lines are low boxes.
struct PaperBox {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  PaperTone tone = PaperTone::hairline;
};

/// Which part of a text stays where it is when its letters turn out wider or narrower.
enum class PaperHold : std::uint8_t { left, middle, right };

/// One line of text; (`x`, `y`) is its top left corner.
struct PaperText {
  double x = 0;
  double y = 0;
  PaperFont font = PaperFont::body;
  std::string text;
  PaperHold hold = PaperHold::left;
};

struct PaperPoint {
  double x = 0;
  double y = 0;
};

/// A line through its points, or with `filled` the area that they surround.
struct PaperStroke {
  std::vector<PaperPoint> points = {};
  PaperTone tone = PaperTone::axis;
  double width = 0;  ///< none: of an area that has no outline
  std::vector<double> dashes =
      {};  ///< lengths of a dash, a gap, a dash, …; none: the line is whole
  bool filled = false;
  std::string says = {};  ///< what it stands for, to who can ask; also of one that is not seen
};

/// The boxes lie below the strokes and these below the texts. All of it is to be drawn `scale`
/// times as large as it says.
struct PaperPage {
  double scale = 1;
  std::vector<PaperBox> boxes = {};
  std::vector<PaperText> texts = {};
  std::vector<PaperStroke> strokes = {};
};

}  // namespace depcalc
