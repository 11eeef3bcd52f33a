// The system's printers, a file in their place, and the preview.
#pragma once

#include <QPrinterInfo>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

#include "controls/printer.h"
#include "desktop/printing/pdf_printer.h"

class QPrinter;
class QWidget;

namespace depcalc::desktop {

/// What printing begins with: the printer's name, or "" for the system's default; the paper, or
/// nothing for the printer's own.
struct PrintStart {
  QString printer;
  std::optional<PaperSize> paper;
};

/// The printer called `preferred`, else the system's default.
[[nodiscard]] QPrinterInfo printerCalled(const QString& preferred);

/// The toolkit's dialog takes any name for a file to print to, and asks about that one. Gives it
/// its ".pdf", and returns whether the user wants that file.
[[nodiscard]] bool endsInPdf(QPrinter& device, QWidget* window);

/// The same printer for a job. Where the system has no printer the
/// user may name a PDF file instead; who does not gets none.
std::unique_ptr<Printer> makeSystemPrinter(const PrintStart& start, QWidget* window);

/// A schedule to be printed.
struct ScheduleJob {
  /// What it would leave out on a printer's paper, for the user to read; "" for nothing.
  std::function<QString(Printer&)> missing;
  std::function<void(Printer&)> print;
  std::function<void()> report_all;  ///< shows the report that leaves nothing out
};

/// Asks which printer and how, and prints there. Where the paper would leave something out it says
/// so first, and the user may go back and choose another. Returns what was chosen; nothing when
/// cancelled.
std::optional<PrintStart> printThroughDialog(const PrintStart& start, const ScheduleJob& job,
                                             QWidget* window);

/// Shows the pages, and below them what the paper chosen there leaves out.
void showPrintPreview(std::optional<PaperSize> paper, const ScheduleJob& job, QWidget* window);

}  // namespace depcalc::desktop
