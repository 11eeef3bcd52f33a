// Where a report goes from the window: a printer, a file.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

#include "desktop/printing/pdf_printer.h"
#include "reports/table.h"
#include "values/date.h"

class QWidget;

namespace depcalc::desktop {

/// Asks which printer and how, beginning with `preferred` and this paper, and prints there. Returns
/// the printer's name, "" when cancelled. A printer that fails is told.
QString printReport(const Report& report, PdfPaper paper, Date today, const QString& preferred,
                    QWidget* window);

/// The report as a PDF document; empty where there is no font.
QByteArray pdfOfReport(const Report& report, PdfPaper paper, Date today);

/// A file to be written.
struct ReportFile {
  QString proposed;  ///< a path to begin with
  QString filter;
  QString suffix;
  QString taken;  ///< the company's own file, which none may replace
};

/// Asks for a file and writes `content` to it, whole or not at all. What fails is told, and the
/// user may try again or choose another file. Returns the path, "" where the user gave it up.
QString exportReport(const ReportFile& file, const QByteArray& content, QWidget* window);

}  // namespace depcalc::desktop
