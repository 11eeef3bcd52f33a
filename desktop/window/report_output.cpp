#include "desktop/window/report_output.h"

#include <QAbstractButton>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSaveFile>

#include "desktop/guide/guide_pages.h"
#include "desktop/printing/pdf_setup.h"
#include "desktop/printing/report_pdf.h"
#include "desktop/printing/report_pen.h"
#include "desktop/printing/twip_font.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/window/file_to_write.h"
#include "desktop/window/printing.h"
#include "desktop/window/warning_box.h"
#include "reports/pages/report_pages.h"

namespace depcalc::desktop {
namespace {

constexpr double twips_in_an_inch = 1440;

/// The pages that the user wants of `count`, from 0.
std::pair<std::size_t, std::size_t> wantedPages(const QPrinter& device, std::size_t count) {
  if (device.printRange() != QPrinter::PageRange || device.fromPage() < 1) return {0, count};
  const auto from = static_cast<std::size_t>(device.fromPage() - 1);
  return {from, std::min(count, static_cast<std::size_t>(std::max(0, device.toPage())))};
}

/// Returns whether the device took all of it.
bool draw(const Report& report, Date today, QPrinter& device) {
  const ReportPen pen(QGuiApplication::font());
  const QSizeF area = device.pageLayout().paintRect(QPageLayout::Point).size() * twips_per_point;
  const ReportPages pages(report, {area.width(), area.height()}, pen, today);
  QPainter painter;
  if (!painter.begin(&device)) return false;
  painter.scale(device.logicalDpiX() / twips_in_an_inch, device.logicalDpiY() / twips_in_an_inch);
  const auto [from, to] = wantedPages(device, pages.count());
  for (std::size_t page = from; page < to; ++page) {
    if (page > from && !device.newPage()) return false;
    pen.draw(painter, pages.page(page));
  }
  return painter.end();
}

enum class AfterFailure { again, elsewhere, give_up };

AfterFailure askAfterFailure(const QString& path, const QString& reason, QWidget* window) {
  QMessageBox box(QMessageBox::Warning, QObject::tr("Export"),
                  QObject::tr("%1 could not be written: %2.\n\nNothing of it was kept, and a file "
                              "of that name is as it was.")
                      .arg(QFileInfo(path).fileName(), reason),
                  QMessageBox::NoButton, window);
  box.setTextFormat(Qt::PlainText);
  const auto* const again = box.addButton(QObject::tr("&Try Again"), QMessageBox::AcceptRole);
  const auto* const elsewhere =
      box.addButton(QObject::tr("Choose Another &File…"), QMessageBox::AcceptRole);
  box.addButton(QMessageBox::Cancel);
  addGuideKey(box, guide::exporting);
  tidyBox(box);
  box.exec();
  if (box.clickedButton() == again) return AfterFailure::again;
  return box.clickedButton() == elsewhere ? AfterFailure::elsewhere : AfterFailure::give_up;
}

/// Its reason in the system's words; "" where it is written.
QString write(const QString& path, const QByteArray& content) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return file.errorString();
  // What is only in the toolkit's buffer when it commits may be lost without a word.
  const bool whole = file.write(content) == content.size() && file.flush();
  const QString reason = file.errorString();
  if (!whole) file.cancelWriting();
  return file.commit() ? QString() : reason;
}

/// "" when cancelled.
QString askPath(const ReportFile& file, const QString& proposed, QWidget* window) {
  return askFileToWrite(window,
                        {.title = QObject::tr("Export"),
                         .filter = file.filter,
                         .proposed = proposed,
                         .page = guide::exporting},
                        file.suffix, file.taken);
}

}  // namespace

QString printReport(const Report& report, PdfPaper paper, Date today, const QString& preferred,
                    QWidget* window) {
  QPrinter device(printerCalled(preferred), QPrinter::HighResolution);
  device.setDocName(QString::fromStdString(report.title));
  device.setPageLayout(pageLayout(paper));
  QPrintDialog dialog(&device, window);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  addGuideKey(dialog, guide::printing);
  while (dialog.exec() == QDialog::Accepted) {
    if (!endsInPdf(device, window)) continue;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const bool done = draw(report, today, device);
    QGuiApplication::restoreOverrideCursor();
    if (done) return device.printerName();
    warn(QObject::tr("The report could not be printed. Please see to the printer, or choose "
                     "another one."),
         window);
  }
  return {};
}

QByteArray pdfOfReport(const Report& report, PdfPaper paper, Date today) {
  const auto pdf = makeReportPdf(paper, report.title);
  if (pdf == nullptr) return {};
  const ReportPages pages(report, pdf->area(), pdf->measures(), today);
  for (std::size_t i = 0; i < pages.count(); ++i) pdf->add(pages.page(i));
  const std::string_view document = pdf->document();
  return {document.data(), static_cast<qsizetype>(document.size())};
}

QString exportReport(const ReportFile& file, const QByteArray& content, QWidget* window) {
  QString path = askPath(file, file.proposed, window);
  while (!path.isEmpty()) {
    const QString reason = write(path, content);
    if (reason.isEmpty()) return path;
    const AfterFailure next = askAfterFailure(path, reason, window);
    if (next == AfterFailure::give_up) return {};
    if (next == AfterFailure::elsewhere) path = askPath(file, path, window);
  }
  return {};
}

}  // namespace depcalc::desktop
