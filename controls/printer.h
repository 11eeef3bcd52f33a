// What printing asks of a printer.
#pragma once

#include <string_view>

#include "controls/grid_picture.h"

namespace depcalc {

/// A print job on the system's printer. Lengths are in twips, positions from the top left of the
/// printable area. A failing operation throws RuntimeError.
class Printer {
 public:
  virtual ~Printer() = default;

  virtual void setFontSize(double points) = 0;
  virtual int textWidth(std::string_view text) = 0;
  virtual int textHeight(std::string_view text) = 0;
  virtual int printableWidth() = 0;
  virtual int printableHeight() = 0;

  /// The number of the page being printed, from 1.
  virtual int page() = 0;
  /// A new page starts at the top left.
  virtual void setPosition(int x, int y) = 0;
  /// Prints at the position, which then stands at the start of the next line.
  virtual void print(std::string_view text) = 0;
  virtual void paintPicture(const GridPicture& picture, int x, int y) = 0;
  virtual void newPage() = 0;
  /// Ends the job and sends it. Nothing printed: nothing sent.
  virtual void endJob() = 0;
};

}  // namespace depcalc
