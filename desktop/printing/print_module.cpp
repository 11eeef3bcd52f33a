#include "desktop/printing/print_module.h"

extern "C" __attribute__((visibility("default"))) depcalc::desktop::PdfPrinter*
depcalcMakePdfPrinter(depcalc::desktop::PdfPaper paper, const char* title) {
  return depcalc::desktop::makePdfPrinter(paper, title).release();
}

extern "C" __attribute__((visibility("default"))) depcalc::desktop::ReportPdf* depcalcMakeReportPdf(
    depcalc::desktop::PdfPaper paper, const char* title) {
  return depcalc::desktop::makeReportPdf(paper, title).release();
}
