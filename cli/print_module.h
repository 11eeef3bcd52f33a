// Printing, loaded when it is needed.
#pragma once

#include <memory>
#include <string>

#include "desktop/printing/pdf_printer.h"

namespace depcalc {

/// Null where printing is not installed or there is no font to print with; `trouble` then says so.
std::unique_ptr<desktop::PdfPrinter> loadPdfPrinter(desktop::PdfPaper paper,
                                                    const std::string& title, std::string& trouble);

}  // namespace depcalc
