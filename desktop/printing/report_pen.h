// How a report's pages look on paper and in the preview.
#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRawFont>
#include <array>
#include <cstdint>
#include <vector>

#include "reports/pages/paper.h"

namespace depcalc::desktop {

/// What a page lies on.
enum class PaperGround : std::uint8_t { white, dark };

/// Measures texts and draws them as large as it measured them. Needs a QGuiApplication.
class ReportPen final : public PaperMeasures {
 public:
  explicit ReportPen(const QFont& family, PaperGround ground = PaperGround::white);

  [[nodiscard]] double width(std::string_view text, PaperFont font) const override;
  [[nodiscard]] double lineHeight(PaperFont font) const override;

  /// The painter's unit is the twip, its origin the top left corner of the area that can be printed
  /// on. Paper is white, whatever the desktop's colours; pictures on the screen lie on its ground.
  void draw(QPainter& painter, const PaperPage& page) const;

 private:
  struct Face {
    QFont font;
    QColor colour;
    double ascent = 0;
    double line_height = 0;
    // Of the letters that need no shaping.
    std::array<double, 128> advances{};
    std::array<quint32, 128> glyphs{};
    QRawFont raw;
  };
  class Run;

  static Face face(const QFont& family, double points, bool bold, const QColor& colour);
  [[nodiscard]] const Face& of(PaperFont font) const {
    return faces_[static_cast<std::size_t>(font)];
  }
  void drawTexts(QPainter& painter, const PaperPage& page, PaperFont font) const;

  void drawStroke(QPainter& painter, const PaperStroke& stroke) const;
  [[nodiscard]] QColor colourOf(PaperTone tone) const;

  PaperGround ground_;
  std::vector<Face> faces_;
};

}  // namespace depcalc::desktop
