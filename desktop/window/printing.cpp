#include "desktop/window/printing.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileInfo>
#include <QGraphicsView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QToolBar>
#include <QToolButton>

#include "desktop/printing/page_printer.h"
#include "desktop/window/file_names.h"
#include "desktop/window/file_to_write.h"
#include "desktop/window/missing_assets.h"

namespace depcalc::desktop {
namespace {

constexpr double margin_inches = 0.5;
const QString pdf_suffix = QStringLiteral(".pdf");

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

/// Below the pages.
QLabel* addNote(QDialog& dialog) {
  auto* const note = new QLabel(&dialog);
  note->setObjectName(QStringLiteral("MissingAssets"));
  note->setTextFormat(Qt::PlainText);
  note->setWordWrap(true);
  const int room = note->fontMetrics().height() / 2;
  note->setContentsMargins(room, room, room, room);
  QFont bold = note->font();
  bold.setBold(true);
  note->setFont(bold);
  note->hide();
  dialog.layout()->addWidget(note);
  return note;
}

QString askPdfFile(QWidget* window) {
  return askFileToWrite(window,
                        {.title = QObject::tr("No printer is set up: print to a PDF file"),
                         .filter = QObject::tr("PDF documents (*.pdf)"),
                         .proposed = QObject::tr("Depreciation Schedule.pdf")},
                        pdf_suffix);
}

}  // namespace

QPrinterInfo printerCalled(const QString& preferred) {
  const QPrinterInfo named =
      preferred.isEmpty() ? QPrinterInfo() : QPrinterInfo::printerInfo(preferred);
  return named.isNull() ? QPrinterInfo::defaultPrinter() : named;
}

bool endsInPdf(QPrinter& device, QWidget* window) {
  const QString named = device.outputFileName();
  if (device.outputFormat() != QPrinter::PdfFormat || named.isEmpty()) return true;
  const QString path = withSuffix(named, pdf_suffix);
  if (path != named && QFileInfo::exists(path) && !mayReplace(path, window)) return false;
  device.setOutputFileName(path);
  return true;
}

std::unique_ptr<Printer> makeSystemPrinter(const QString& preferred, QWidget* window) {
  const QPrinterInfo printer = printerCalled(preferred);
  if (!printer.isNull()) return std::make_unique<SystemJob>(printer);
  const QString path = askPdfFile(window);
  if (path.isEmpty()) return nullptr;
  return std::make_unique<SystemJob>(path);
}

QString printThroughDialog(const QString& preferred, const ScheduleJob& job, QWidget* window) {
  QPrinter device(printerCalled(preferred), QPrinter::HighResolution);
  device.setDocName(QObject::tr("Depreciation Schedule"));
  setMargins(device);
  QPrintDialog dialog(&device, window);
  while (dialog.exec() == QDialog::Accepted) {
    if (!endsInPdf(device, window)) continue;
    PagePrinter printer(device);
    const AboutMissing wanted = askAboutMissing(job.missing(printer), QObject::tr("&Back"), window);
    if (wanted == AboutMissing::back) continue;
    if (wanted == AboutMissing::report) {
      job.report_all();
      return {};
    }
    job.print(printer);
    return device.printerName();
  }
  return {};
}

void showPrintPreview(const ScheduleJob& job, QWidget* window) {
  QPrinter device(QPrinter::HighResolution);
  setMargins(device);
  QPrintPreviewDialog dialog(&device, window);
  dialog.setObjectName(QStringLiteral("PrintPreview"));
  dialog.resize(window->size());
  nameControls(dialog);
  QLabel* const note = addNote(dialog);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, window,
                   [&job, note](QPrinter* preview) {
                     PagePrinter printer(*preview);
                     const QString missing = job.missing(printer);
                     note->setText(missing);
                     note->setVisible(!missing.isEmpty());
                     job.print(printer);
                   });
  dialog.exec();
}

}  // namespace depcalc::desktop
