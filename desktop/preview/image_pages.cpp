#include "desktop/preview/image_pages.h"

#include <QPageLayout>

namespace depcalc::desktop {
namespace {

constexpr double margin_points = 36;

}  // namespace

ImagePages::ImagePages(int dpi) : dpi_(dpi) {
  const QMarginsF margins(margin_points, margin_points, margin_points, margin_points);
  setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, margins));
  page_ = QImage(pageLayout().paintRectPixels(dpi_).size(), QImage::Format_RGB32);
  page_.fill(Qt::white);
}

bool ImagePages::newPage() {
  pages.push_back(page_.copy());
  page_.fill(Qt::white);
  return true;
}

int ImagePages::metric(PaintDeviceMetric metric) const {
  constexpr double millimetres_per_inch = 25.4;
  switch (metric) {
    case PdmWidth:
      return page_.width();
    case PdmHeight:
      return page_.height();
    case PdmWidthMM:
      return qRound(page_.width() * millimetres_per_inch / dpi_);
    case PdmHeightMM:
      return qRound(page_.height() * millimetres_per_inch / dpi_);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
      return dpi_;
    case PdmNumColors:
      return std::numeric_limits<int>::max();
    case PdmDepth:
      return page_.depth();
    default:
      return QPagedPaintDevice::metric(metric);
  }
}

}  // namespace depcalc::desktop
