#include "desktop/printing/report_pdf.h"

#include <QBuffer>
#include <QPainter>

#include "desktop/printing/pdf_setup.h"
#include "desktop/printing/report_pen.h"
#include "desktop/printing/twip_font.h"

namespace depcalc::desktop {
namespace {

class BufferedReportPdf final : public ReportPdf {
 public:
  BufferedReportPdf(std::unique_ptr<PrintingApplication> application, PdfPaper paper,
                    const std::string& title)
      : application_(std::move(application)), pen_(QGuiApplication::font()) {
    buffer_.open(QIODevice::WriteOnly);
    setUp(writer_, paper, title);
    good_ = painter_.begin(&writer_);
  }

  [[nodiscard]] const PaperMeasures& measures() const override { return pen_; }
  [[nodiscard]] PaperArea area() const override {
    const QSizeF points = writer_.pageLayout().paintRect(QPageLayout::Point).size();
    return {points.width() * twips_per_point, points.height() * twips_per_point};
  }
  void add(const PaperPage& page) override {
    if (any_) good_ = good_ && writer_.newPage();
    any_ = true;
    if (good_) pen_.draw(painter_, page);
  }
  [[nodiscard]] std::string_view document() override {
    if (painter_.isActive()) good_ = painter_.end() && good_;
    const QByteArray& bytes = buffer_.data();
    if (!good_ || !any_) return {};
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
  }

 private:
  std::unique_ptr<PrintingApplication> application_;
  ReportPen pen_;
  QBuffer buffer_;
  QPdfWriter writer_{&buffer_};
  QPainter painter_;  ///< ends before what it draws on
  bool good_ = false;
  bool any_ = false;
};

}  // namespace

std::unique_ptr<ReportPdf> makeReportPdf(PdfPaper paper, const std::string& title) {
  auto application = std::make_unique<PrintingApplication>();
  if (!PrintingApplication::hasFonts()) return nullptr;
  return std::make_unique<BufferedReportPdf>(std::move(application), paper, title);
}

}  // namespace depcalc::desktop
