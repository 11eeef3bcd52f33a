// Printing into a PDF document, without a display and without any of Qt's headers.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "controls/printer.h"

namespace depcalc::desktop {

enum class PaperSize { a4, letter };

struct PdfPaper {
  PaperSize size = PaperSize::a4;
  bool landscape = false;
};

/// Half an inch of margin all around, in twips.
inline constexpr int pdf_margin = 720;

class PdfPrinter : public Printer {
 public:
  /// The document, once a job has ended; empty when nothing was printed.
  [[nodiscard]] virtual std::string_view document() const = 0;
};

/// Brings up what Qt needs to draw where nobody has done so yet. Where there is no font to print
/// with: nothing.
std::unique_ptr<PdfPrinter> makePdfPrinter(PdfPaper paper, const std::string& title);

}  // namespace depcalc::desktop
