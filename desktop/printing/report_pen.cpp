#include "desktop/printing/report_pen.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <algorithm>
#include <cmath>

#include "desktop/printing/twip_font.h"
#include "reports/pages/paper_tones.h"

namespace depcalc::desktop {
namespace {

constexpr double line_spacing = 1.12;

QColor qtColour(PaperColour colour) { return {colour.red, colour.green, colour.blue}; }

QString qtText(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 128; });
}

}  // namespace

ReportPen::ReportPen(const QFont& family, PaperGround ground) : ground_(ground) {
  for (int i = 0; i <= static_cast<int>(last_paper_font); ++i) {
    const auto font = static_cast<PaperFont>(i);
    const PaperLetters letters = lettersOf(font);
    const bool dark = ground == PaperGround::dark;
    faces_.push_back(
        face(family, letters.points, letters.bold, qtColour(dark ? onDark(font) : onWhite(font))));
  }
}

QColor ReportPen::colourOf(PaperTone tone) const {
  return qtColour(ground_ == PaperGround::dark ? onDark(tone) : onWhite(tone));
}

ReportPen::Face ReportPen::face(const QFont& family, double points, bool bold,
                                const QColor& colour) {
  Face face;
  face.font = twipFont(family, points, bold);
  face.colour = colour;
  // Without kerning a text is as wide as its letters.
  face.font.setKerning(false);
  face.raw = QRawFont::fromFont(face.font);
  const QFontMetricsF metrics(face.font);
  face.ascent = metrics.ascent();
  face.line_height = std::ceil(metrics.height() * line_spacing);
  for (std::size_t c = ' '; c < face.advances.size(); ++c) {
    face.advances[c] = metrics.horizontalAdvance(QChar(static_cast<char16_t>(c)));
    face.glyphs[c] = face.raw.glyphIndexesForString(QChar(static_cast<char16_t>(c))).value(0);
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

/// Letters with their places, many texts at once: to a PDF document each text is otherwise a state
/// of its own, with colour and font.
class ReportPen::Run {
 public:
  explicit Run(const Face& face) : face_(face) {}

  void add(const PaperText& text) {
    double x = text.x;
    for (const char letter : text.text) {
      const auto c = static_cast<std::size_t>(letter);
      glyphs_ << face_.glyphs[c];
      places_ << QPointF(x, text.y + face_.ascent);
      x += face_.advances[c];
    }
  }
  void draw(QPainter& painter) const {
    if (glyphs_.isEmpty()) return;
    QGlyphRun run;
    run.setRawFont(face_.raw);
    run.setGlyphIndexes(glyphs_);
    run.setPositions(places_);
    painter.drawGlyphRun({0, 0}, run);
  }

 private:
  const Face& face_;
  QVector<quint32> glyphs_;
  QVector<QPointF> places_;
};

void ReportPen::drawTexts(QPainter& painter, const PaperPage& page, PaperFont font) const {
  const Face& face = of(font);
  Run run(face);
  painter.setFont(face.font);
  painter.setPen(face.colour);
  for (const PaperText& text : page.texts) {
    if (text.font != font) continue;
    if (isAscii(text.text)) {
      run.add(text);
    } else {
      painter.drawText(QPointF(text.x, text.y + face.ascent), qtText(text.text));
    }
  }
  run.draw(painter);
}

void ReportPen::drawStroke(QPainter& painter, const PaperStroke& stroke) const {
  QPolygonF line;
  for (const PaperPoint& point : stroke.points) line << QPointF(point.x, point.y);
  const QColor colour = colourOf(stroke.tone);
  if (stroke.filled) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(line);
  } else if (stroke.width > 0) {
    QPen pen(colour, stroke.width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    QList<qreal> dashes;
    for (const double dash : stroke.dashes) dashes << dash / stroke.width;
    if (!dashes.isEmpty()) pen.setDashPattern(dashes);
    painter.setPen(pen);
    painter.drawPolyline(line);
  }
}

void ReportPen::draw(QPainter& painter, const PaperPage& page) const {
  painter.save();
  painter.scale(page.scale, page.scale);
  for (const PaperBox& box : page.boxes) {
    painter.fillRect(QRectF(box.x, box.y, box.width, box.height), colourOf(box.tone));
  }
  for (const PaperStroke& stroke : page.strokes) drawStroke(painter, stroke);
  for (std::size_t font = 0; font < faces_.size(); ++font) {
    drawTexts(painter, page, static_cast<PaperFont>(font));
  }
  painter.restore();
}

}  // namespace depcalc::desktop
