// Drawing by GDI: shapes, pictures and texts.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "controls/button_pictures.h"
#include "controls/font.h"
#include "windows/controls/smoothing.h"
#include "windows/controls/text_lines.h"
#include "windows/controls/tones.h"
#include "windows/controls/zoom.h"

namespace depcalc::native {

/// A rounded rectangle. Lengths in units of the device.
struct Frame {
  double corner = 0;
  int line = 1;
  COLORREF border = 0;
  std::optional<COLORREF> fill;
};

class Canvas {
 public:
  Canvas(HDC dc, Zoom zoom, TextMeasure& measure, Fonts& fonts, const Tones& tones);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  [[nodiscard]] HDC dc() const { return dc_; }
  [[nodiscard]] const Zoom& zoom() const { return zoom_; }
  [[nodiscard]] const Tones& tones() const { return tones_; }
  [[nodiscard]] int pixels(double twips) const { return zoom_.pixels(twips); }
  /// The thickness of a line of one pixel at the usual resolution, `times` so thick.
  [[nodiscard]] int line(double times = 1) const;

  void fill(const RECT& area, COLORREF colour) const;
  void frame(const RECT& area, const Frame& frame) const;
  /// Rounded above and straight below.
  void tab(const RECT& area, double corner, COLORREF colour) const;
  void circle(double x, double y, double radius, double pen, COLORREF border, COLORREF fill) const;
  void picture(std::span<const Stroke> strokes, double left, double top, double side,
               COLORREF colour) const;
  /// An open line through the points, round at its ends.
  void polyline(std::span<const std::pair<double, double>> points, double pen,
                COLORREF colour) const;

  /// A text in the font, broken at `wrap_width` (twips, 0: not at all), from the top of `area`.
  /// `underlined`: the position of a letter that gets a line of its own, or -1.
  struct Text {
    std::wstring_view text;
    Font font;
    TextAlignment alignment = TextAlignment::left;
    int wrap_width = 0;
    int underlined = -1;
    COLORREF colour = 0;
  };
  void text(const RECT& area, const Text& text) const;
  [[nodiscard]] SIZE textSize(std::wstring_view text, const Font& font, int wrap_width = 0) const;

  /// A line of text as it is, its top left corner at a point, or top right, or top centre.
  void line(std::wstring_view text, HFONT font, int x, int y, UINT align, COLORREF colour) const;

  /// For measuring in the device's units with a font selected; draws nothing.
  [[nodiscard]] HDC layout(const Font& font) const;
  [[nodiscard]] HFONT fontOf(const Font& font) const { return fonts_.of(font); }

 private:
  void underline(std::wstring_view text, const TextLine& line, const Text& look, int left,
                 int top) const;

  HDC dc_;
  Zoom zoom_;
  TextMeasure& measure_;
  Fonts& fonts_;
  const Tones& tones_;
  Smoothing smoothing_;
  COLORREF nearest_;  ///< goes with every colour
  MemoryDc layout_;
  HGDIOBJ layout_font_;
};

}  // namespace depcalc::native
