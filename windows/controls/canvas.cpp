#include "windows/controls/canvas.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "windows/controls/realized_palette.h"

namespace depcalc::native {

Canvas::Canvas(HDC dc, Zoom zoom, TextMeasure& measure, Fonts& fonts, const Tones& tones)
    : dc_(dc),
      zoom_(zoom),
      measure_(measure),
      fonts_(fonts),
      tones_(tones),
      smoothing_(dc),
      nearest_(nearestFlag(dc)),
      layout_font_(GetCurrentObject(layout_.get(), OBJ_FONT)) {}

Canvas::~Canvas() { SelectObject(layout_.get(), layout_font_); }

int Canvas::line(double times) const { return std::max(1, rounded(pixels(15) * times)); }

void Canvas::fill(const RECT& area, COLORREF colour) const {
  const BrushHandle brush(CreateSolidBrush(colour | nearest_));
  FillRect(dc_, &area, brush.get());
}

void Canvas::frame(const RECT& area, const Frame& frame) const {
  const double inset = frame.line / 2.0;
  const auto whole = [&](const Plane& plane) {
    plane.shape(frame.line, frame.border, frame.fill, [&] {
      plane.roundRectangle(area.left + inset, area.top + inset, area.right - inset,
                           area.bottom - inset, frame.corner);
    });
  };
  if (!smoothing_.hasPixels()) return smoothing_.show(area, whole);
  const int side = frame.corner <= 0 ? 0 : static_cast<int>(std::ceil(frame.corner)) + frame.line;
  const RECT across{area.left + side, area.top, area.right - side, area.bottom};
  const RECT down{area.left, area.top + side, area.right, area.bottom - side};
  if (frame.fill) {
    fill(across, *frame.fill);
    fill(down, *frame.fill);
  }
  fill({across.left, across.top, across.right, across.top + frame.line}, frame.border);
  fill({across.left, across.bottom - frame.line, across.right, across.bottom}, frame.border);
  fill({down.left, down.top, down.left + frame.line, down.bottom}, frame.border);
  fill({down.right - frame.line, down.top, down.right, down.bottom}, frame.border);
  // Only the corners have anything to be smoothed.
  if (side > 0) smoothing_.drawCorners(area, side, whole);
}

void Canvas::tab(const RECT& area, double corner, COLORREF colour) const {
  const int side = static_cast<int>(std::ceil(corner)) + 1;
  const auto whole = [&](const Plane& plane) {
    plane.shape(0, colour, colour, [&] {
      plane.roundRectangle(area.left, area.top, area.right, area.bottom + 2 * corner, corner);
    });
  };
  if (!smoothing_.hasPixels()) {
    const SavedDc saved(dc_);
    IntersectClipRect(dc_, area.left, area.top, area.right, area.bottom);
    return smoothing_.show(area, whole);
  }
  fill({area.left + side, area.top, area.right - side, area.top + side}, colour);
  fill({area.left, area.top + side, area.right, area.bottom}, colour);
  smoothing_.show({area.left, area.top, area.left + side, area.top + side}, whole);
  smoothing_.show({area.right - side, area.top, area.right, area.top + side}, whole);
}

void Canvas::circle(double x, double y, double radius, double pen, COLORREF border,
                    COLORREF fill) const {
  const double reach = radius + pen;
  const RECT area{static_cast<LONG>(std::floor(x - reach)),
                  static_cast<LONG>(std::floor(y - reach)), static_cast<LONG>(std::ceil(x + reach)),
                  static_cast<LONG>(std::ceil(y + reach))};
  smoothing_.show(area, [&](const Plane& plane) {
    plane.shape(pen, border, fill, [&] { plane.ellipse(x, y, radius); });
  });
}

void Canvas::picture(std::span<const Stroke> strokes, double left, double top, double side,
                     COLORREF colour) const {
  const double unit = side / picture_side;
  const RECT area{static_cast<LONG>(std::floor(left - unit)),
                  static_cast<LONG>(std::floor(top - unit)),
                  static_cast<LONG>(std::ceil(left + side + unit)),
                  static_cast<LONG>(std::ceil(top + side + unit))};
  smoothing_.show(area, [&](const Plane& plane) {
    const auto x = [&](double at) { return left + at * unit; };
    const auto y = [&](double at) { return top + at * unit; };
    POINT start{};
    plane.shape(picture_pen * unit, colour, std::nullopt, [&] {
      for (const Stroke& at : strokes) {
        const POINT here = plane.at(x(at.x), y(at.y));
        switch (at.kind) {
          case Stroke::Kind::move:
            start = here;
            MoveToEx(plane.dc, here.x, here.y, nullptr);
            break;
          case Stroke::Kind::line:
            LineTo(plane.dc, here.x, here.y);
            break;
          case Stroke::Kind::close:
            LineTo(plane.dc, start.x, start.y);
            break;
          case Stroke::Kind::rectangle:
          case Stroke::Kind::roundedRectangle:
            plane.roundRectangle(x(at.x), y(at.y), x(at.x + at.width), y(at.y + at.height),
                                 at.radius * unit);
            break;
          case Stroke::Kind::dot:
            plane.ellipse(x(at.x), y(at.y), at.radius * unit);
            break;
        }
      }
    });
  });
}

void Canvas::polyline(std::span<const std::pair<double, double>> points, double pen,
                      COLORREF colour) const {
  RECT area{};
  for (const auto& [x, y] : points) {
    const RECT around{static_cast<LONG>(std::floor(x - pen)),
                      static_cast<LONG>(std::floor(y - pen)), static_cast<LONG>(std::ceil(x + pen)),
                      static_cast<LONG>(std::ceil(y + pen))};
    UnionRect(&area, &area, &around);
  }
  smoothing_.show(area, [&](const Plane& plane) {
    std::vector<POINT> there;
    for (const auto& [x, y] : points) there.push_back(plane.at(x, y));
    plane.shape(pen, colour, std::nullopt,
                [&] { Polyline(plane.dc, there.data(), static_cast<int>(there.size())); });
  });
}

HDC Canvas::layout(const Font& font) const {
  SelectObject(layout_.get(), fonts_.of(font));
  return layout_.get();
}

void Canvas::line(std::wstring_view text, HFONT font, int x, int y, UINT align,
                  COLORREF colour) const {
  const HGDIOBJ former = SelectObject(dc_, font);
  SetBkMode(dc_, TRANSPARENT);
  SetTextAlign(dc_, align | TA_TOP);
  SetTextColor(dc_, colour | nearest_);
  ExtTextOutW(dc_, x, y, 0, nullptr, text.data(), static_cast<UINT>(text.size()), nullptr);
  SetTextAlign(dc_, TA_LEFT | TA_TOP);
  SelectObject(dc_, former);
}

SIZE Canvas::textSize(std::wstring_view text, const Font& font, int wrap_width) const {
  int width = 0;
  const auto lines = measure_.lines(text, font, wrap_width);
  const HDC dc = layout(font);
  for (const TextLine& line : lines) {
    SIZE size{};
    GetTextExtentPoint32W(dc, text.data() + line.start, static_cast<int>(line.length), &size);
    width = std::max<int>(width, size.cx);
  }
  const double height = static_cast<double>(lines.size()) * measure_.lineHeight(font) * zoom_.y;
  return {width, static_cast<LONG>(std::lround(height))};
}

void Canvas::text(const RECT& area, const Text& text) const {
  const double pitch = measure_.lineHeight(text.font) * zoom_.y;
  const HFONT font = fonts_.of(text.font);
  double top = area.top;
  for (const TextLine& part : measure_.lines(text.text, text.font, text.wrap_width)) {
    const std::wstring_view shown = text.text.substr(part.start, part.length);
    const int y = rounded(top);
    SIZE size{};
    GetTextExtentPoint32W(layout(text.font), shown.data(), static_cast<int>(shown.size()), &size);
    int left = area.left;
    if (text.alignment == TextAlignment::right) {
      left = area.right - size.cx;
      line(shown, font, area.right, y, TA_RIGHT, text.colour);
    } else if (text.alignment == TextAlignment::center) {
      left = (area.left + area.right - size.cx) / 2;
      line(shown, font, (area.left + area.right) / 2, y, TA_CENTER, text.colour);
    } else {
      line(shown, font, left, y, TA_LEFT, text.colour);
    }
    underline(text.text, part, text, left, y);
    top += pitch;
  }
}

void Canvas::underline(std::wstring_view text, const TextLine& line, const Text& look, int left,
                       int top) const {
  const auto position = static_cast<std::size_t>(look.underlined);
  if (look.underlined < 0 || position < line.start || position >= line.start + line.length) return;
  const HDC dc = layout(look.font);
  SIZE before{};
  SIZE letter{};
  GetTextExtentPoint32W(dc, text.data() + line.start, static_cast<int>(position - line.start),
                        &before);
  GetTextExtentPoint32W(dc, text.data() + position, 1, &letter);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  // A link is underlined already: its letter gets a second line below the first.
  const int thickness = this->line();
  const int below = top + metrics.tmAscent + thickness * (look.font.underline ? 3 : 1);
  fill({left + before.cx, below, left + before.cx + letter.cx, below + thickness}, look.colour);
}

}  // namespace depcalc::native
