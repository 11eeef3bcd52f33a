#include "desktop/preview/image_printer.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <cmath>

#include "desktop/printing/grid_drawing.h"
#include "desktop/printing/twip_font.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

// Twips.
constexpr int paper_width = 11906;
constexpr int paper_height = 16838;
constexpr int margin = 720;

constexpr double usual_points = 10;

}  // namespace

ImagePrinter::ImagePrinter(int dpi)
    : dpi_(dpi), family_(QGuiApplication::font()), font_(twipFont(family_, usual_points)) {}

void ImagePrinter::setFontSize(double points) { font_ = twipFont(family_, points); }

int ImagePrinter::textWidth(std::string_view text) {
  return static_cast<int>(std::ceil(QFontMetricsF(font_).horizontalAdvance(qtText(text))));
}

int ImagePrinter::textHeight(std::string_view /*text*/) {
  return static_cast<int>(std::ceil(QFontMetricsF(font_).height()));
}

int ImagePrinter::printableWidth() { return paper_width - 2 * margin; }
int ImagePrinter::printableHeight() { return paper_height - 2 * margin; }

/// A page begins when something is drawn on it.
template <typename Draw>
void ImagePrinter::draw(Draw draw) {
  const double scale = static_cast<double>(dpi_) / twips_per_inch;
  while (pages_.size() < page_) {
    pages_.push_back(QImage(static_cast<int>(paper_width * scale),
                            static_cast<int>(paper_height * scale), QImage::Format_RGB32));
    pages_.back().fill(Qt::white);
  }
  QPainter painter(&pages_.back());
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter.scale(scale, scale);
  painter.translate(margin, margin);
  painter.setFont(font_);
  draw(painter);
}

void ImagePrinter::print(std::string_view text) {
  draw([&](QPainter& painter) {
    painter.drawText(QPointF(position_.x(), position_.y() + QFontMetricsF(font_).ascent()),
                     qtText(text));
  });
  position_ = {0, position_.y() + textHeight(text)};
}

void ImagePrinter::paintPicture(const GridPicture& picture, int x, int y) {
  draw([&](QPainter& painter) { drawGrid(painter, picture, x, y, family_); });
}

}  // namespace depcalc::desktop
