#include "desktop/printing/pdf_printer.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPdfWriter>
#include <clocale>

#include "desktop/printing/page_printer.h"
#include "desktop/printing/twip_font.h"

namespace depcalc::desktop {
namespace {

/// What Qt has to say about the surroundings (no display, no home) matters to no document.
void beSilent(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/) {}

/// The application that Qt's fonts need, unless there is one.
class Application {
 public:
  Application() {
    if (QGuiApplication::instance() != nullptr) return;
    former_handler_ = qInstallMessageHandler(beSilent);
    application_ = std::make_unique<QGuiApplication>(count_, arguments_);
    // It took the number format of the user's locale.
    std::setlocale(LC_NUMERIC, "C");
  }
  ~Application() {
    if (application_ == nullptr) return;
    application_.reset();
    qInstallMessageHandler(former_handler_);
  }
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

 private:
  char name_[8] = "depcalc";
  char option_[10] = "-platform";
  char platform_[10] = "offscreen";
  char* arguments_[4] = {name_, option_, platform_, nullptr};
  int count_ = 3;
  QtMessageHandler former_handler_ = nullptr;
  std::unique_ptr<QGuiApplication> application_;
};

QPageLayout pageLayout(PdfPaper paper) {
  const QPageSize size(paper.size == PaperSize::letter ? QPageSize::Letter : QPageSize::A4);
  const double margin = pdf_margin / twips_per_point;
  return {size, paper.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
          QMarginsF(margin, margin, margin, margin), QPageLayout::Point};
}

class BufferedPdfPrinter : public PdfPrinter {
 public:
  BufferedPdfPrinter(std::unique_ptr<Application> application, PdfPaper paper,
                     const std::string& title)
      : application_(std::move(application)) {
    buffer_.open(QIODevice::WriteOnly);
    writer_.setResolution(1440);  // whole twips
    writer_.setPageLayout(pageLayout(paper));
    writer_.setTitle(QString::fromStdString(title));
    writer_.setCreator(QStringLiteral("depcalc"));
  }

  void setFontSize(double points) override { pages_.setFontSize(points); }
  int textWidth(std::string_view text) override { return pages_.textWidth(text); }
  int textHeight(std::string_view text) override { return pages_.textHeight(text); }
  int printableWidth() override { return pages_.printableWidth(); }
  int printableHeight() override { return pages_.printableHeight(); }
  int page() override { return pages_.page(); }
  void setPosition(int x, int y) override { pages_.setPosition(x, y); }
  void print(std::string_view text) override { pages_.print(text); }
  void paintPicture(const GridPicture& picture, int x, int y) override {
    pages_.paintPicture(picture, x, y);
  }
  void newPage() override { pages_.newPage(); }
  void endJob() override { pages_.endJob(); }

  [[nodiscard]] std::string_view document() const override {
    const QByteArray& bytes = buffer_.data();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
  }

 private:
  std::unique_ptr<Application> application_;
  QBuffer buffer_;
  QPdfWriter writer_{&buffer_};
  PagePrinter pages_{writer_};
};

}  // namespace

std::unique_ptr<PdfPrinter> makePdfPrinter(PdfPaper paper, const std::string& title) {
  auto application = std::make_unique<Application>();
  if (QFontDatabase::families().isEmpty()) return nullptr;
  return std::make_unique<BufferedPdfPrinter>(std::move(application), paper, title);
}

}  // namespace depcalc::desktop
