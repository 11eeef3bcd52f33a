// A text as labels draw it, and as the calculator measures it.
#pragma once

#include <QFont>
#include <QPainter>
#include <QTextLayout>
#include <memory>
#include <string_view>
#include <vector>

#include "controls/font.h"
#include "controls/site.h"
#include "desktop/widgets/scale.h"

namespace depcalc::desktop {

[[nodiscard]] QString qtText(std::string_view utf8);

/// For a tool tip that shows `text` letter for letter, also where it looks like markup.
[[nodiscard]] QString toolTipText(const QString& text);

/// The application's family in the size that `font` has at this scale. Widths grow in proportion
/// to the scale, so that lines break at the same words at every zoom.
[[nodiscard]] QFont qtFont(const Font& font, const Scale& scale);

/// Broken at line breaks and, where `wrap_width` (twips) is not 0, between words.
class TextBlock {
 public:
  TextBlock(const QString& text, const Font& font, const Scale& scale, int wrap_width);

  /// In pixels.
  [[nodiscard]] double width() const { return width_; }
  [[nodiscard]] double height() const { return height_; }

  /// In the painter's pen, from the top of `area`. `underlined`: the position of a letter that
  /// gets a line of its own, or -1.
  void draw(QPainter& painter, const QRectF& area, TextAlignment alignment,
            int underlined = -1) const;

 private:
  struct Paragraph {
    std::unique_ptr<QTextLayout> layout;
    int start = 0;
    double top = 0;
  };

  void underline(QPainter& painter, const Paragraph& paragraph, const QTextLine& line, double x,
                 double y, int position) const;

  std::vector<Paragraph> paragraphs_;
  double width_ = 0;
  double height_ = 0;
};

/// What Site::textExtent answers: whole twips, nothing cut off.
[[nodiscard]] TextExtent measuredText(std::string_view text, const Font& font, int wrap_width,
                                      const Scale& scale);

/// Where `letter` stands in the text, as a capital at a word's start before anything else; -1:
/// nowhere.
[[nodiscard]] int mnemonicPosition(const QString& text, char letter);

}  // namespace depcalc::desktop
