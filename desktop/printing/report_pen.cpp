#include "desktop/printing/report_pen.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "desktop/printing/twip_font.h"

namespace depcalc::desktop {
namespace {

constexpr QColor black(26, 26, 26);
constexpr QColor dark_red(102, 0, 0);
constexpr QColor grey(96, 96, 96);

constexpr double line_spacing = 1.12;

QColor toneOf(PaperTone tone) {
  switch (tone) {
    case PaperTone::heading:
      return {245, 232, 219};
    case PaperTone::group:
      return {250, 246, 240};
    case PaperTone::accent:
      return dark_red;
    default:
      return {214, 210, 204};
  }
}

QString qtText(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 128; });
}

}  // namespace

ReportPen::ReportPen(const QFont& family) {
  faces_.push_back(face(family, 15, true, dark_red));  // title
  faces_.push_back(face(family, 9.5, false, grey));    // lead
  faces_.push_back(face(family, 8.5, true, black));    // heading
  faces_.push_back(face(family, 8.5, false, black));   // body
  faces_.push_back(face(family, 8.5, true, black));    // strong
  faces_.push_back(face(family, 7.5, false, grey));    // small
}

ReportPen::Face ReportPen::face(const QFont& family, double points, bool bold,
                                const QColor& colour) {
  Face face{twipFont(family, points, bold), colour};
  // Without kerning a text is as wide as its letters.
  face.font.setKerning(false);
  const QFontMetricsF metrics(face.font);
  face.ascent = metrics.ascent();
  face.line_height = std::ceil(metrics.height() * line_spacing);
  for (std::size_t c = ' '; c < face.advances.size(); ++c) {
    face.advances[c] = metrics.horizontalAdvance(QChar(static_cast<char16_t>(c)));
  }
  return face;
}

double ReportPen::width(std::string_view text, PaperFont font) const {
  const Face& face = of(font);
  if (!isAscii(text)) return QFontMetricsF(face.font).horizontalAdvance(qtText(text));
  double width = 0;
  for (const char c : text) width += face.advances[static_cast<std::size_t>(c)];
  return width;
}

double ReportPen::lineHeight(PaperFont font) const { return of(font).line_height; }

void ReportPen::draw(QPainter& painter, const PaperPage& page) const {
  for (const PaperBox& box : page.boxes) {
    painter.fillRect(QRectF(box.x, box.y, box.width, box.height), toneOf(box.tone));
  }
  const Face* shown = nullptr;
  for (const PaperText& text : page.texts) {
    const Face& face = of(text.font);
    if (&face != shown) {
      shown = &face;
      painter.setFont(face.font);
      painter.setPen(face.colour);
    }
    painter.drawText(QPointF(text.x, text.y + face.ascent), qtText(text.text));
  }
}

}  // namespace depcalc::desktop
