#include "desktop/printing/pdf_setup.h"

#include <QFontDatabase>
#include <clocale>

#include "desktop/printing/twip_font.h"

namespace depcalc::desktop {
namespace {

/// What Qt has to say about the surroundings (no display, no home) matters to no document.
void beSilent(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/) {}

}  // namespace

PrintingApplication::PrintingApplication() {
  if (QGuiApplication::instance() != nullptr) return;
  former_handler_ = qInstallMessageHandler(beSilent);
  application_ = std::make_unique<QGuiApplication>(count_, arguments_);
  // It took the number format of the user's locale.
  std::setlocale(LC_NUMERIC, "C");
}

PrintingApplication::~PrintingApplication() {
  if (application_ == nullptr) return;
  application_.reset();
  qInstallMessageHandler(former_handler_);
}

bool PrintingApplication::hasFonts() { return !QFontDatabase::families().isEmpty(); }

QPageLayout pageLayout(PdfPaper paper) {
  const QPageSize size(paper.size == PaperSize::letter ? QPageSize::Letter : QPageSize::A4);
  const double margin = pdf_margin / twips_per_point;
  return {size, paper.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
          QMarginsF(margin, margin, margin, margin), QPageLayout::Point};
}

void setUp(QPdfWriter& writer, PdfPaper paper, const std::string& title) {
  writer.setResolution(1440);  // whole twips
  writer.setPageLayout(pageLayout(paper));
  writer.setTitle(QString::fromStdString(title));
  writer.setCreator(QStringLiteral("depcalc"));
}

}  // namespace depcalc::desktop
