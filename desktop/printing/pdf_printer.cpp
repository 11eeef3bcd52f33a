#include "desktop/printing/pdf_printer.h"

#include <QBuffer>

#include "desktop/printing/page_printer.h"
#include "desktop/printing/pdf_setup.h"

namespace depcalc::desktop {
namespace {

class BufferedPdfPrinter : public PdfPrinter {
 public:
  BufferedPdfPrinter(std::unique_ptr<PrintingApplication> application, PdfPaper paper,
                     const std::string& title)
      : application_(std::move(application)) {
    buffer_.open(QIODevice::WriteOnly);
    setUp(writer_, paper, title);
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
  std::unique_ptr<PrintingApplication> application_;
  QBuffer buffer_;
  QPdfWriter writer_{&buffer_};
  PagePrinter pages_{writer_};
};

}  // namespace

std::unique_ptr<PdfPrinter> makePdfPrinter(PdfPaper paper, const std::string& title) {
  auto application = std::make_unique<PrintingApplication>();
  if (!PrintingApplication::hasFonts()) return nullptr;
  return std::make_unique<BufferedPdfPrinter>(std::move(application), paper, title);
}

}  // namespace depcalc::desktop
