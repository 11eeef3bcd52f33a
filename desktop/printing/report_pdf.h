// A report's pages as a PDF document, without a display and without any of Qt's headers.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "desktop/printing/pdf_printer.h"
#include "reports/pages/paper.h"

namespace depcalc::desktop {

class ReportPdf {
 public:
  ReportPdf() = default;
  ReportPdf(const ReportPdf&) = delete;
  ReportPdf& operator=(const ReportPdf&) = delete;
  virtual ~ReportPdf() = default;

  [[nodiscard]] virtual const PaperMeasures& measures() const = 0;
  /// Of every page, inside its margins.
  [[nodiscard]] virtual PaperArea area() const = 0;
  virtual void add(const PaperPage& page) = 0;
  /// Ends the document; nothing may be added any more. Empty where it could not be made.
  [[nodiscard]] virtual std::string_view document() = 0;
};

/// Brings up what Qt needs to draw where nobody has done so yet. Where there is no font to print
/// with: nothing.
std::unique_ptr<ReportPdf> makeReportPdf(PdfPaper paper, const std::string& title);

}  // namespace depcalc::desktop
