#include "desktop/widgets/text_block.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

#include "controls/looks.h"

namespace depcalc::desktop {
namespace {

constexpr int twips_per_point = 20;
constexpr double unbroken = 1e6;  // pixels, wider than any line

/// A line's height, in parts of the font's size. Measured on a large font: those of small ones
/// are rounded to pixels.
double lineHeight() {
  constexpr int large = 1000;  // pixels
  QFont font = QGuiApplication::font();
  font.setPixelSize(large);
  return QFontMetricsF(font).height() / large;
}

}  // namespace

QString qtText(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString toolTipText(const QString& text) {
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

QFont qtFont(const Font& font, const Scale& scale) {
  QFont made = QGuiApplication::font();
  made.setPointSizeF(font.size * scale.zoom() / 100);
  made.setBold(font.bold);
  made.setUnderline(font.underline);
  made.setHintingPreference(QFont::PreferNoHinting);
  return made;
}

TextBlock::TextBlock(const QString& text, const Font& font, const Scale& scale, int wrap_width) {
  // A thousandth of a pixel of slack: a text fits where it was measured to fit.
  const double room = wrap_width > 0 ? scale.exact(wrap_width) + 1e-3 : unbroken;
  QTextOption option;
  option.setWrapMode(wrap_width > 0 ? QTextOption::WrapAtWordBoundaryOrAnywhere
                                    : QTextOption::ManualWrap);
  option.setUseDesignMetrics(true);
  const QFont qt_font = qtFont(font, scale);
  const double pitch = scale.exact(font.size * twips_per_point) * lineHeight();
  int start = 0;
  for (QString line_text : text.split(u'\n')) {
    const int length = static_cast<int>(line_text.size());
    if (line_text.endsWith(u'\r')) line_text.chop(1);
    Paragraph paragraph{std::make_unique<QTextLayout>(line_text, qt_font), start, height_};
    paragraph.layout->setTextOption(option);
    paragraph.layout->beginLayout();
    for (QTextLine line = paragraph.layout->createLine(); line.isValid();
         line = paragraph.layout->createLine()) {
      line.setLineWidth(room);
      line.setPosition({0, height_ - paragraph.top});
      height_ += pitch;
      width_ = std::max(width_, line.naturalTextWidth());
    }
    paragraph.layout->endLayout();
    paragraphs_.push_back(std::move(paragraph));
    start += length + 1;
  }
}

void TextBlock::draw(QPainter& painter, const QRectF& area, TextAlignment alignment,
                     int underlined) const {
  for (const Paragraph& paragraph : paragraphs_) {
    for (int i = 0; i < paragraph.layout->lineCount(); ++i) {
      const QTextLine line = paragraph.layout->lineAt(i);
      const double spare = area.width() - line.naturalTextWidth();
      const double indent = alignment == TextAlignment::left     ? 0
                            : alignment == TextAlignment::center ? spare / 2
                                                                 : spare;
      const QPointF at(area.left() + indent, area.top() + paragraph.top);
      line.draw(&painter, at);
      underline(painter, paragraph, line, at.x(), at.y(), underlined - paragraph.start);
    }
  }
}

void TextBlock::underline(QPainter& painter, const Paragraph& paragraph, const QTextLine& line,
                          double x, double y, int position) const {
  if (position < line.textStart() || position >= line.textStart() + line.textLength()) return;
  const QFontMetricsF metrics(paragraph.layout->font());
  const double from = x + line.cursorToX(position);
  const double to = x + line.cursorToX(position + 1);
  const double thickness = std::max(1.0, metrics.lineWidth());
  // A link is underlined already: its letter gets a second line below the first.
  const double below = metrics.underlinePos() + (paragraph.layout->font().underline() ? 2.0 : 0.5);
  painter.fillRect(
      QRectF(from, std::round(y + line.y() + line.ascent() + below), to - from, thickness),
      painter.pen().color());
}

TextExtent measuredText(std::string_view text, const Font& font, int wrap_width,
                        const Scale& scale) {
  const TextBlock block(qtText(text), font, scale, wrap_width);
  const auto whole = [&scale](double pixels) {
    return static_cast<int>(std::ceil(scale.twips(std::ceil(pixels))));
  };
  return {whole(block.width()), whole(block.height())};
}

int mnemonicPosition(const QString& text, char letter) {
  const auto* const units = reinterpret_cast<const char16_t*>(text.utf16());
  return looks::mnemonicPosition(std::u16string_view(units, static_cast<std::size_t>(text.size())),
                                 letter);
}

}  // namespace depcalc::desktop
