#include "desktop/window/printing.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileDialog>
#include <QGraphicsView>
#include <QLineEdit>
#include <QMainWindow>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QToolBar>
#include <QToolButton>

#include "desktop/printing/page_printer.h"

namespace depcalc::desktop {
namespace {

constexpr double margin_inches = 0.5;

void setMargins(QPrinter& device) {
  device.setPageMargins({margin_inches, margin_inches, margin_inches, margin_inches},
                        QPageLayout::Inch);
}

/// A job keeps its device until its end.
struct Device {
  explicit Device(const QPrinterInfo& printer) : device(printer, QPrinter::HighResolution) {
    device.setDocName(QObject::tr("Depreciation Schedule"));
    setMargins(device);
  }
  QPrinter device;
};

class SystemJob : private Device, public PagePrinter {
 public:
  explicit SystemJob(const QPrinterInfo& printer) : Device(printer), PagePrinter(Device::device) {}
  explicit SystemJob(const QString& pdf_path)
      : Device(QPrinterInfo()), PagePrinter(Device::device) {
    Device::device.setOutputFormat(QPrinter::PdfFormat);
    Device::device.setOutputFileName(pdf_path);
    setMargins(Device::device);
  }
};

QPrinterInfo printerCalled(const QString& preferred) {
  const QPrinterInfo named =
      preferred.isEmpty() ? QPrinterInfo() : QPrinterInfo::printerInfo(preferred);
  return named.isNull() ? QPrinterInfo::defaultPrinter() : named;
}

/// The toolkit's dialog leaves some of its controls without one.
void nameControls(QPrintPreviewDialog& dialog) {
  for (auto* part : dialog.findChildren<QMainWindow*>())
    part->setAccessibleName(QObject::tr("Preview"));
  for (auto* bar : dialog.findChildren<QToolBar*>()) bar->setAccessibleName(QObject::tr("Preview"));
  for (auto* more : dialog.findChildren<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))) {
    more->setAccessibleName(QObject::tr("More"));
  }
  for (auto* pages : dialog.findChildren<QGraphicsView*>()) {
    pages->setAccessibleName(QObject::tr("Pages"));
  }
  for (auto* zoom : dialog.findChildren<QComboBox*>()) {
    zoom->setAccessibleName(QObject::tr("Zoom"));
    zoom->view()->setAccessibleName(zoom->accessibleName());
  }
  for (auto* number : dialog.findChildren<QLineEdit*>()) {
    const bool zooms = qobject_cast<QComboBox*>(number->parent()) != nullptr;
    number->setAccessibleName(zooms ? QObject::tr("Zoom") : QObject::tr("Page"));
  }
}

}  // namespace

std::unique_ptr<Printer> makeSystemPrinter(const QString& preferred, QWidget* window) {
  const QPrinterInfo printer = printerCalled(preferred);
  if (!printer.isNull()) return std::make_unique<SystemJob>(printer);
  const QString path = QFileDialog::getSaveFileName(
      window, QObject::tr("No printer is set up: print to a PDF file"),
      QObject::tr("Depreciation Schedule.pdf"), QObject::tr("PDF documents (*.pdf)"));
  if (path.isEmpty()) return nullptr;
  return std::make_unique<SystemJob>(path);
}

QString printThroughDialog(const QString& preferred, const std::function<void(Printer&)>& job,
                           QWidget* window) {
  QPrinter device(printerCalled(preferred), QPrinter::HighResolution);
  device.setDocName(QObject::tr("Depreciation Schedule"));
  setMargins(device);
  QPrintDialog dialog(&device, window);
  if (dialog.exec() != QDialog::Accepted) return {};
  PagePrinter printer(device);
  job(printer);
  return device.printerName();
}

void showPrintPreview(const std::function<void(Printer&)>& job, QWidget* window) {
  QPrinter device(QPrinter::HighResolution);
  setMargins(device);
  QPrintPreviewDialog dialog(&device, window);
  dialog.setObjectName(QStringLiteral("PrintPreview"));
  dialog.resize(window->size());
  nameControls(dialog);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, window,
                   [&job](QPrinter* preview) {
                     PagePrinter printer(*preview);
                     job(printer);
                   });
  dialog.exec();
}

}  // namespace depcalc::desktop
