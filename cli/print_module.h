// Printing, loaded when it is needed.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "desktop/printing/pdf_printer.h"
#include "desktop/printing/report_pdf.h"
#include "reports/table.h"
#include "values/date.h"

namespace depcalc {

/// "A4" or "Letter", in any case.
desktop::PdfPaper paperCalled(std::string_view name, bool landscape);

/// Null where printing is not installed or there is no font to print with; `trouble` then says so.
std::unique_ptr<desktop::PdfPrinter> loadPdfPrinter(desktop::PdfPaper paper,
                                                    const std::string& title, std::string& trouble);

/// `report` as a PDF document, with the date `today` in the foot of every page. Where there is
/// none, `trouble` says why.
std::string pdfReport(const Report& report, desktop::PdfPaper paper, Date today,
                      std::string& trouble);

}  // namespace depcalc
