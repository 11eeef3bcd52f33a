#include "desktop/printing/page_printer.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPageLayout>
#include <cmath>
#include <utility>

#include "desktop/printing/grid_drawing.h"
#include "desktop/printing/twip_font.h"
#include "values/runtime_error.h"

namespace depcalc::desktop {
namespace {

constexpr double twips_per_inch = 1440;
constexpr double usual_points = 10;

RuntimeError printerError() { return {482, "Printer error"}; }

QString qtText(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// Of the area inside the margins.
QSizeF printableTwips(const QPagedPaintDevice& device) {
  return device.pageLayout().paintRect(QPageLayout::Point).size() * twips_per_point;
}

}  // namespace

PagePrinter::PagePrinter(QPagedPaintDevice& device)
    : device_(device), family_(QGuiApplication::font()), font_(twipFont(family_, usual_points)) {}

void PagePrinter::setFontSize(double points) { font_ = twipFont(family_, points); }

int PagePrinter::textWidth(std::string_view text) {
  return static_cast<int>(std::ceil(QFontMetricsF(font_).horizontalAdvance(qtText(text))));
}

int PagePrinter::textHeight(std::string_view /*text*/) {
  return static_cast<int>(std::ceil(QFontMetricsF(font_).height()));
}

int PagePrinter::printableWidth() { return static_cast<int>(printableTwips(device_).width()); }
int PagePrinter::printableHeight() { return static_cast<int>(printableTwips(device_).height()); }

void PagePrinter::print(std::string_view text) {
  QPainter& page = painter();
  page.setFont(font_);
  page.drawText(QPointF(position_.x(), position_.y() + QFontMetricsF(font_).ascent()),
                qtText(text));
  position_ = {0, position_.y() + textHeight(text)};
}

void PagePrinter::paintPicture(const GridPicture& picture, int x, int y) {
  drawGrid(painter(), picture, x, y, family_);
}

void PagePrinter::newPage() {
  ++page_;
  ++pages_due_;
  position_ = {0, 0};
}

void PagePrinter::endJob() {
  const bool failed = painter_.isActive() && !painter_.end();
  page_ = 1;
  pages_due_ = 0;
  position_ = {0, 0};
  if (failed) throw printerError();
}

QPainter& PagePrinter::painter() {
  if (!painter_.isActive()) {
    if (!painter_.begin(&device_)) throw printerError();
    painter_.scale(device_.logicalDpiX() / twips_per_inch, device_.logicalDpiY() / twips_per_inch);
  }
  for (; pages_due_ > 0; --pages_due_) {
    if (!device_.newPage()) throw printerError();
  }
  return painter_;
}

}  // namespace depcalc::desktop
