#include "windows/controls/cell_text.h"

#include <algorithm>

#include "windows/com/com_text.h"

namespace depcalc::native {
namespace {

struct Laid {
  std::vector<TextLine> lines;
  Font font;
  int pitch = 0;
  int width = 0;

  [[nodiscard]] int height() const { return pitch * static_cast<int>(lines.size()); }
  [[nodiscard]] bool fits(const RECT& room) const {
    return width <= room.right - room.left && height() <= room.bottom - room.top;
  }
};

Laid laid(const Canvas& canvas, const RECT& room, std::wstring_view text, const Font& font,
          Breaking breaking) {
  const HDC dc = canvas.layout(font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  Laid result{brokenLines(dc, text, std::max<int>(1, room.right - room.left), breaking), font,
              metrics.tmHeight};
  for (const TextLine& line : result.lines) result.width = std::max(result.width, line.width);
  return result;
}

/// In the largest size that fits, else the smallest.
Laid laidFitting(const Canvas& canvas, const RECT& room, std::wstring_view text, bool bold,
                 std::span<const double> sizes, Breaking breaking) {
  Laid result;
  for (const double points : sizes) {
    result = laid(canvas, room, text, {points, bold}, breaking);
    if (result.fits(room)) break;
  }
  return result;
}

/// Where `size` begins in `room`; `part` is 0 for the start, 1 for the middle, 2 for the end.
int placed(int part, int room, int size) { return (room - size) * part / 2; }

void draw(const Canvas& canvas, const RECT& room, std::wstring_view text, const Laid& laid,
          CellAlignment alignment, COLORREF colour) {
  const int across = static_cast<int>(alignment) / 3;
  const int spare = placed(static_cast<int>(alignment) % 3, room.bottom - room.top, laid.height());
  int y = room.top + std::max(0, spare);
  const int x = across == 0 ? room.left : across == 1 ? (room.left + room.right) / 2 : room.right;
  const UINT align = across == 0 ? TA_LEFT : across == 1 ? TA_CENTER : TA_RIGHT;
  for (const TextLine& line : laid.lines) {
    if (y >= room.bottom) break;
    canvas.line(text.substr(line.start, line.length), canvas.fontOf(laid.font), x, y, align,
                colour);
    y += laid.pitch;
  }
}

}  // namespace

void drawCellText(const Canvas& canvas, const RECT& room, std::string_view text,
                  CellAlignment alignment, CellKind kind, std::span<const double> sizes,
                  COLORREF colour) {
  if (text.empty()) return;
  const std::wstring shown = utf16(text);
  const Breaking gentle = isAmount(kind) ? Breaking::atBreaks : Breaking::atWords;
  Laid result = laidFitting(canvas, room, shown, isBold(kind), sizes, gentle);
  if (!result.fits(room)) {
    result = laidFitting(canvas, room, shown, isBold(kind), sizes, Breaking::anywhere);
  }
  if (result.fits(room)) return draw(canvas, room, shown, result, alignment, colour);
  const SavedDc saved(canvas.dc());
  IntersectClipRect(canvas.dc(), room.left, room.top, room.right, room.bottom);
  draw(canvas, room, shown, result, alignment, colour);
}

}  // namespace depcalc::native
