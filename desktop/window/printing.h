// The system's printers, a file in their place, and the preview.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "controls/printer.h"

class QWidget;

namespace depcalc::desktop {

/// The printer called `preferred`, else the system's default. Where the system has no printer the
/// user may name a PDF file instead; who does not gets none.
std::unique_ptr<Printer> makeSystemPrinter(const QString& preferred, QWidget* window);

/// Asks which printer and how; runs `job` there. Returns the printer's name, "" when cancelled.
QString printThroughDialog(const QString& preferred, const std::function<void(Printer&)>& job,
                           QWidget* window);

void showPrintPreview(const std::function<void(Printer&)>& job, QWidget* window);

}  // namespace depcalc::desktop
