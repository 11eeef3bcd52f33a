#include "windows/controls/gdi_printer.h"

#include "values/runtime_error.h"
#include "windows/com/com_text.h"
#include "windows/controls/printed_grid.h"

namespace depcalc::native {

GdiPrinter::GdiPrinter(std::unique_ptr<PageDevice> device, const std::wstring& family)
    : device_(std::move(device)), measure_(family), fonts_(family, device_->zoom().y * 1440) {}

GdiPrinter::~GdiPrinter() { device_->abort(); }

int GdiPrinter::textWidth(std::string_view text) { return measure_.extent(text, font_, 0).width; }

int GdiPrinter::textHeight(std::string_view /*text*/) { return measure_.lineHeight(font_); }

void GdiPrinter::print(std::string_view text) {
  const Canvas& page = canvas();
  const std::wstring shown = utf16(text);
  const RECT at = page.zoom().rect({position_.x, position_.y, 0, 0});
  page.line(shown, page.fontOf(font_), at.left, at.top, TA_LEFT, RGB(0, 0, 0));
  position_ = {0, position_.y + textHeight(text)};
}

void GdiPrinter::paintPicture(const GridPicture& picture, int x, int y) {
  drawPrintedGrid(canvas(), picture, x, y);
}

void GdiPrinter::newPage() {
  ++page_;
  ++pages_due_;
  position_ = {};
}

void GdiPrinter::endJob() {
  pages_due_ = 0;
  if (canvas_.has_value()) finishPage();
  if (!device_->endJob()) fail();
  restart();
}

void GdiPrinter::finishPage() {
  canvas_.reset();
  if (!device_->endPage()) fail();
}

void GdiPrinter::fail() {
  device_->abort();
  restart();
  throw RuntimeError(482, "Printer error");
}

void GdiPrinter::restart() {
  canvas_.reset();
  page_ = 1;
  pages_due_ = 0;
  position_ = {};
}

const Canvas& GdiPrinter::canvas() {
  for (; pages_due_ > 0; --pages_due_) {
    // A page on which nothing stands is one, where another follows it.
    if (!canvas_.has_value() && !device_->beginPage()) fail();
    finishPage();
  }
  if (!canvas_.has_value()) {
    if (!device_->beginPage()) fail();
    canvas_.emplace(device_->dc(), device_->zoom(), measure_, fonts_, tones_);
  }
  return *canvas_;
}

}  // namespace depcalc::native
