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

#include "desktop/guide/guide_pages.h"
#include "desktop/printing/page_printer.h"
#include "desktop/widgets/guide_help.h"
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

/// The paper that the user prefers, where there is one, and our margins on it.
void setPaper(QPrinter& device, std::optional<PaperSize> paper) {
  if (paper) {
    device.setPageSize(QPageSize(*paper == PaperSize::letter ? QPageSize::Letter : QPageSize::A4));
  }
  setMargins(device);
}

/// What the user can choose again; nothing for paper of any other size.
std::optional<PaperSize> paperOf(const QPrinter& device) {
  const QPageSize::PageSizeId id = device.pageLayout().pageSize().id();
  if (id == QPageSize::A4) return PaperSize::a4;
  return id == QPageSize::Letter ? std::optional(PaperSize::letter) : std::nullopt;
}

/// A job keeps its device until its end.
struct Device {
  Device(const QPrinterInfo& printer, std::optional<PaperSize> paper)
      : device(printer, QPrinter::HighResolution) {
    device.setDocName(QObject::tr("Depreciation Schedule"));
    setPaper(device, paper);
  }
  QPrinter device;
};

class SystemJob : private Device, public PagePrinter {
 public:
  SystemJob(const QPrinterInfo& printer, std::optional<PaperSize> paper)
      : Device(printer, paper), PagePrinter(Device::device) {}
  SystemJob(const QString& pdf_path, std::optional<PaperSize> paper)
      : Device(QPrinterInfo(), paper), PagePrinter(Device::device) {
    Device::device.setOutputFormat(QPrinter::PdfFormat);
    Device::device.setOutputFileName(pdf_path);
    setPaper(Device::device, paper);
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
                         .proposed = QObject::tr("Depreciation Schedule.pdf"),
                         .page = guide::printing},
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

std::unique_ptr<Printer> makeSystemPrinter(const PrintStart& start, QWidget* window) {
  const QPrinterInfo printer = printerCalled(start.printer);
  if (!printer.isNull()) return std::make_unique<SystemJob>(printer, start.paper);
  const QString path = askPdfFile(window);
  if (path.isEmpty()) return nullptr;
  return std::make_unique<SystemJob>(path, start.paper);
}

std::optional<PrintStart> printThroughDialog(const PrintStart& start, const ScheduleJob& job,
                                             QWidget* window) {
  QPrinter device(printerCalled(start.printer), QPrinter::HighResolution);
  device.setDocName(QObject::tr("Depreciation Schedule"));
  setPaper(device, start.paper);
  QPrintDialog dialog(&device, window);
  addGuideKey(dialog, guide::printing);
  while (dialog.exec() == QDialog::Accepted) {
    if (!endsInPdf(device, window)) continue;
    PagePrinter printer(device);
    const AboutMissing wanted = askAboutMissing(job.missing(printer), QObject::tr("&Back"), window);
    if (wanted == AboutMissing::back) continue;
    if (wanted == AboutMissing::report) {
      job.report_all();
      return std::nullopt;
    }
    job.print(printer);
    return PrintStart{device.printerName(), paperOf(device)};
  }
  return std::nullopt;
}

void showPrintPreview(std::optional<PaperSize> paper, const ScheduleJob& job, QWidget* window) {
  QPrinter device(QPrinter::HighResolution);
  setPaper(device, paper);
  QPrintPreviewDialog dialog(&device, window);
  dialog.setObjectName(QStringLiteral("PrintPreview"));
  dialog.resize(window->size());
  nameControls(dialog);
  QLabel* const note = addNote(dialog);
  addGuideKey(dialog, guide::printing);
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
