// What the loadable module for printing exports.
#pragma once

#include "desktop/printing/pdf_printer.h"
#include "desktop/printing/report_pdf.h"

namespace depcalc::desktop {

/// makePdfPrinter, for the caller to delete; nothing where there is no font to print with.
using MakePdfPrinter = PdfPrinter*(PdfPaper paper, const char* title);
/// makeReportPdf, likewise.
using MakeReportPdf = ReportPdf*(PdfPaper paper, const char* title);

inline constexpr const char* print_module_name = "libdepcalc-print.so";
inline constexpr const char* print_module_function = "depcalcMakePdfPrinter";
inline constexpr const char* report_module_function = "depcalcMakeReportPdf";

}  // namespace depcalc::desktop
