// The system's printers, a file in their place, and the preview.
#pragma once

#include <QPrinterInfo>
#include <QString>
#include <functional>
#include <memory>

#include "controls/printer.h"

class QPrinter;
class QWidget;

namespace depcalc::desktop {

/// The printer called `preferred`, else the system's default.
[[nodiscard]] QPrinterInfo printerCalled(const QString& preferred);

/// The toolkit's dialog takes any name for a file to print to, and asks about that one. Gives it
/// its ".pdf", and returns whether the user wants that file.
[[nodiscard]] bool endsInPdf(QPrinter& device, QWidget* window);

/// The same printer for a job. Where the system has no printer the
/// user may name a PDF file instead; who does not gets none.
std::unique_ptr<Printer> makeSystemPrinter(const QString& preferred, QWidget* window);

/// A schedule to be printed.
struct ScheduleJob {
  /// What it would leave out on a printer's paper, for the user to read; "" for nothing.
  std::function<QString(Printer&)> missing;
  std::function<void(Printer&)> print;
  std::function<void()> report_all;  ///< shows the report that leaves nothing out
};

/// Asks which printer and how, and prints there. Where the paper would leave something out it says
/// so first, and the user may go back and choose another. Returns the printer's name, "" when
/// cancelled.
QString printThroughDialog(const QString& preferred, const ScheduleJob& job, QWidget* window);

/// Shows the pages, and below them what the paper chosen there leaves out.
void showPrintPreview(const ScheduleJob& job, QWidget* window);

}  // namespace depcalc::desktop
