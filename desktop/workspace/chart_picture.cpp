#include "desktop/workspace/chart_picture.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>

#include "desktop/printing/report_pen.h"
#include "desktop/widgets/text_block.h"
#include "reports/charts/chart_layout.h"
#include "reports/charts/chart_svg.h"
#include "reports/formats/tabbed.h"
#include "reports/methods_chart.h"

namespace depcalc::desktop {
namespace {

constexpr PaperArea picture_area{13500, 6000};  // twips
constexpr double margin = 240;                  // twips
constexpr double twips_per_pixel = 7.5;
constexpr int dots_per_meter = 7559;  ///< 192 to the inch

void addPicture(QMimeData& data, const Chart& chart) {
  data.setImageData(chartImage(chart));
  data.setData(QStringLiteral("image/svg+xml"), chartAsSvg(chart));
}

void addTable(QMimeData& data, const Chart& chart) {
  data.setText(qtText(tabbedReport(chartReport(chart))));
}

template <typename Add>
void toClipboard(Add add) {
  auto* const data = new QMimeData;
  add(*data);
  QGuiApplication::clipboard()->setMimeData(data);
}

}  // namespace

QImage chartImage(const Chart& chart) {
  QImage image(static_cast<int>(picture_area.width / twips_per_pixel),
               static_cast<int>(picture_area.height / twips_per_pixel), QImage::Format_RGB32);
  image.setDotsPerMeterX(dots_per_meter);
  image.setDotsPerMeterY(dots_per_meter);
  image.fill(Qt::white);
  const ReportPen pen(QGuiApplication::font());
  const PaperArea area{picture_area.width - 2 * margin, picture_area.height - 2 * margin};
  const ChartLayout layout(chart, area, pen, {.year = {}, .titled = true});
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter.scale(1 / twips_per_pixel, 1 / twips_per_pixel);
  painter.translate(margin, margin);
  pen.draw(painter, layout.page());
  return image;
}

QByteArray chartAsPng(const Chart& chart) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  chartImage(chart).save(&buffer, "PNG");
  return buffer.data();
}

QByteArray chartAsSvg(const Chart& chart) {
  return QByteArray::fromStdString(chartSvg(chart, picture_area, SvgUse::file));
}

void copyChartPicture(const Chart& chart) {
  toClipboard([&](QMimeData& data) { addPicture(data, chart); });
}

void copyChartTable(const Chart& chart) {
  toClipboard([&](QMimeData& data) { addTable(data, chart); });
}

void copyChart(const Chart& chart) {
  toClipboard([&](QMimeData& data) {
    addPicture(data, chart);
    addTable(data, chart);
  });
}

}  // namespace depcalc::desktop
