#include "windows/controls/canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "windows/controls/realized_palette.h"

namespace depcalc::native {
namespace {

constexpr int fineness = 4;  // dots to the side of a pixel while a shape is drawn

int rounded(double value) { return static_cast<int>(std::lround(value)); }

/// Pixels of 32 bits in memory, the first line on top.
class Pixels {
 public:
  Pixels(HDC like, int width, int height) : dc_(like) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_ = BitmapHandle(CreateDIBSection(dc_.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    bits_ = static_cast<std::uint32_t*>(bits);
    former_ = SelectObject(dc_.get(), bitmap_.get());
  }
  ~Pixels() { SelectObject(dc_.get(), former_); }
  Pixels(const Pixels&) = delete;
  Pixels& operator=(const Pixels&) = delete;

  [[nodiscard]] HDC dc() const { return dc_.get(); }
  [[nodiscard]] std::uint32_t* bits() const { return bits_; }

 private:
  MemoryDc dc_;
  BitmapHandle bitmap_;
  std::uint32_t* bits_ = nullptr;
  HGDIOBJ former_ = nullptr;
};

std::uint32_t averageOf(const std::uint32_t* first, int stride) {
  std::uint32_t sums[3] = {};
  for (int y = 0; y < fineness; ++y) {
    for (int x = 0; x < fineness; ++x) {
      for (int part = 0; part < 3; ++part) sums[part] += first[y * stride + x] >> 8 * part & 0xFF;
    }
  }
  constexpr std::uint32_t count = fineness * fineness;
  std::uint32_t average = 0;
  for (int part = 0; part < 3; ++part) average |= (sums[part] + count / 2) / count << 8 * part;
  return average;
}

void shrink(const Pixels& fine, const Pixels& coarse, int width, int height) {
  GdiFlush();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      coarse.bits()[y * width + x] =
          averageOf(fine.bits() + (y * width * fineness + x) * fineness, width * fineness);
    }
  }
}

bool hasPixels(HDC dc) {
  const DWORD kind = GetObjectType(dc);
  return (kind == OBJ_DC || kind == OBJ_MEMDC) && GetDeviceCaps(dc, TECHNOLOGY) == DT_RASDISPLAY &&
         GetMapMode(dc) == MM_TEXT && GetGraphicsMode(dc) == GM_COMPATIBLE;
}

PenHandle penOf(double width, COLORREF colour, DWORD ends = PS_ENDCAP_ROUND | PS_JOIN_ROUND) {
  const LOGBRUSH brush{BS_SOLID, colour, 0};
  const auto whole = static_cast<DWORD>(std::max(1, rounded(width)));
  return PenHandle(ExtCreatePen(PS_GEOMETRIC | PS_SOLID | ends, whole, &brush, 0, nullptr));
}

}  // namespace

RECT Zoom::rect(const Place& place, POINT origin) const {
  return {origin.x + rounded(place.left * x), origin.y + rounded(place.top * y),
          origin.x + rounded((place.left + place.width) * x),
          origin.y + rounded((place.top + place.height) * y)};
}

int Zoom::pixels(double twips) const { return rounded(twips * std::min(x, y)); }

/// Where a shape is drawn: a device context whose units are `factor` of the canvas's.
struct Canvas::Plane {
  HDC dc;
  double factor;
  double left;
  double top;

  [[nodiscard]] POINT at(double x, double y) const {
    return {rounded((x - left) * factor), rounded((y - top) * factor)};
  }
  /// A filled and bordered shape; `pen` is in the canvas's units.
  template <typename Draw>
  void shape(double pen, COLORREF border, const std::optional<COLORREF>& fill, Draw draw) const {
    const SavedDc saved(dc);
    const PenHandle outline = pen > 0 ? penOf(pen * factor, border) : PenHandle();
    const BrushHandle inside = fill ? BrushHandle(CreateSolidBrush(*fill)) : BrushHandle();
    SelectObject(dc, pen > 0 ? static_cast<HGDIOBJ>(outline.get()) : GetStockObject(NULL_PEN));
    SelectObject(dc, fill ? static_cast<HGDIOBJ>(inside.get()) : GetStockObject(NULL_BRUSH));
    draw();
    SelectObject(dc, GetStockObject(NULL_PEN));
    SelectObject(dc, GetStockObject(NULL_BRUSH));
  }
  void roundRectangle(double l, double t, double r, double b, double corner) const {
    const POINT from = at(l, t);
    const POINT to = at(r, b);
    const int side = rounded(2 * corner * factor);
    RoundRect(dc, from.x, from.y, to.x + 1, to.y + 1, side, side);
  }
  void ellipse(double x, double y, double radius) const {
    const POINT from = at(x - radius, y - radius);
    const POINT to = at(x + radius, y + radius);
    Ellipse(dc, from.x, from.y, to.x + 1, to.y + 1);
  }
};

Canvas::Canvas(HDC dc, Zoom zoom, TextMeasure& measure, Fonts& fonts, const Tones& tones)
    : dc_(dc),
      zoom_(zoom),
      measure_(measure),
      fonts_(fonts),
      tones_(tones),
      raster_(hasPixels(dc)),
      nearest_(nearestFlag(dc)),
      layout_font_(GetCurrentObject(layout_.get(), OBJ_FONT)) {}

Canvas::~Canvas() { SelectObject(layout_.get(), layout_font_); }

int Canvas::line(double times) const { return std::max(1, rounded(pixels(15) * times)); }

void Canvas::fill(const RECT& area, COLORREF colour) const {
  const BrushHandle brush(CreateSolidBrush(colour | nearest_));
  FillRect(dc_, &area, brush.get());
}

/// Draws at a multiple of the resolution, over what is there, and averages.
void Canvas::smooth(const RECT& area, const std::function<void(const Plane&)>& draw) const {
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  if (width <= 0 || height <= 0) return;
  if (!raster_) return draw({dc_, 1, 0, 0});
  const Pixels fine(dc_, width * fineness, height * fineness);
  const Pixels coarse(dc_, width, height);
  if (fine.bits() == nullptr || coarse.bits() == nullptr) return draw({dc_, 1, 0, 0});
  SetStretchBltMode(fine.dc(), COLORONCOLOR);
  StretchBlt(fine.dc(), 0, 0, width * fineness, height * fineness, dc_, area.left, area.top, width,
             height, SRCCOPY);
  draw({fine.dc(), fineness, static_cast<double>(area.left), static_cast<double>(area.top)});
  shrink(fine, coarse, width, height);
  BitBlt(dc_, area.left, area.top, width, height, coarse.dc(), 0, 0, SRCCOPY);
}

/// Only corners have anything to be smoothed.
void Canvas::corners(const RECT& area, int side,
                     const std::function<void(const Plane&)>& draw) const {
  const int across = std::min<int>(side, (area.right - area.left + 1) / 2);
  const int down = std::min<int>(side, (area.bottom - area.top + 1) / 2);
  for (const LONG left : {area.left, area.right - across}) {
    for (const LONG top : {area.top, area.bottom - down}) {
      smooth({left, top, left + across, top + down}, draw);
    }
  }
}

void Canvas::frame(const RECT& area, const Frame& frame) const {
  const double inset = frame.line / 2.0;
  const auto whole = [&](const Plane& plane) {
    plane.shape(frame.line, frame.border, frame.fill, [&] {
      plane.roundRectangle(area.left + inset, area.top + inset, area.right - inset,
                           area.bottom - inset, frame.corner);
    });
  };
  if (!raster_) return smooth(area, whole);
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
  if (side > 0) corners(area, side, whole);
}

void Canvas::tab(const RECT& area, double corner, COLORREF colour) const {
  const int side = static_cast<int>(std::ceil(corner)) + 1;
  const auto whole = [&](const Plane& plane) {
    plane.shape(0, colour, colour, [&] {
      plane.roundRectangle(area.left, area.top, area.right, area.bottom + 2 * corner, corner);
    });
  };
  if (!raster_) {
    const SavedDc saved(dc_);
    IntersectClipRect(dc_, area.left, area.top, area.right, area.bottom);
    return smooth(area, whole);
  }
  fill({area.left + side, area.top, area.right - side, area.top + side}, colour);
  fill({area.left, area.top + side, area.right, area.bottom}, colour);
  smooth({area.left, area.top, area.left + side, area.top + side}, whole);
  smooth({area.right - side, area.top, area.right, area.top + side}, whole);
}

void Canvas::circle(double x, double y, double radius, double pen, COLORREF border,
                    COLORREF fill) const {
  const double reach = radius + pen;
  const RECT area{static_cast<LONG>(std::floor(x - reach)),
                  static_cast<LONG>(std::floor(y - reach)), static_cast<LONG>(std::ceil(x + reach)),
                  static_cast<LONG>(std::ceil(y + reach))};
  smooth(area, [&](const Plane& plane) {
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
  smooth(area, [&](const Plane& plane) {
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
  smooth(area, [&](const Plane& plane) {
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
