#include "windows/controls/control_drawing.h"

#include <algorithm>
#include <array>

#include "controls/looks.h"
#include "windows/com/com_text.h"

namespace depcalc::native {
namespace {

constexpr double hover_part = 0.15;
constexpr double press_part = 0.3;

struct Look {
  COLORREF fill;
  COLORREF ink;
};

Look lookOf(const PictureButton& button, bool hovered, const Tones& tones) {
  const bool pressed = isPressedPicture(button.picture());
  if (button.role() == ButtonRole::primary) {
    const COLORREF ink = tones.inkOn(looks::accent, looks::paper);
    const COLORREF fill = tones.ground(looks::accent);
    if (tones.highContrast()) return {fill, ink};
    return {blended(fill, ink, pressed ? press_part : hovered ? hover_part : 0), ink};
  }
  const Colour ground = pressed ? looks::heading : hovered ? looks::selection : looks::paper;
  return {tones.ground(ground), tones.inkOn(ground, looks::accent)};
}

int middle(int low, int high, int size) { return low + (high - low - size) / 2; }

RECT shrunk(RECT area, int by) {
  InflateRect(&area, -by, -by);
  return area;
}

void drawBare(const Canvas& canvas, const ButtonPicture& picture, const RECT& area, bool hovered) {
  const Tones& tones = canvas.tones();
  if (hovered) canvas.fill(area, tones.ground(looks::selection));
  const double side = (area.right - area.left) * 2 / 3.0;
  const COLORREF ink =
      hovered ? tones.inkOn(looks::selection, looks::accent) : tones.ink(looks::accent);
  canvas.picture(picture.strokes, area.left + (area.right - area.left - side) / 2,
                 area.top + (area.bottom - area.top - side) / 2, side, ink);
}

int wrapOf(const Label& label) { return label.wordWrap() ? label.width() : 0; }

}  // namespace

void drawLabel(const Canvas& canvas, const Label& label, const RECT& area) {
  const Tones& tones = canvas.tones();
  COLORREF ink = tones.ink(label.foreColour());
  if (label.role() == LabelRole::tab) {
    canvas.tab(area, canvas.pixels(looks::frame_corner), tones.ground(label.backColour()));
    ink = tones.inkOn(label.backColour(), label.foreColour());
  } else if (label.clickable()) {
    ink = tones.link(label.foreColour());
  }
  const std::wstring text = utf16(looks::shownText(label));
  RECT room = area;
  if (!label.wordWrap()) {
    const int height = canvas.textSize(text, label.font()).cy;
    room.top = std::max<LONG>(area.top, middle(area.top, area.bottom, height));
  }
  const int letter = looks::mnemonicPosition(std::wstring_view(text), label.mnemonic());
  canvas.text(room, {text, label.font(), label.alignment(), wrapOf(label), letter, ink});
}

void drawShape(const Canvas& canvas, const Shape& shape, const RECT& area) {
  const Tones& tones = canvas.tones();
  const COLORREF ground = tones.ground(shape.backColour());
  COLORREF border = tones.ink(shape.foreColour());
  if (looks::surroundsPage(shape) && !tones.highContrast()) {
    border = blended(ground, border, looks::faint);
  }
  const double corner = shape.rounded() ? canvas.pixels(looks::frame_corner) : 0;
  canvas.frame(area, {corner, canvas.line(), border, ground});
}

void drawButton(const Canvas& canvas, const PictureButton& button, const RECT& area, bool hovered) {
  const ButtonPicture* const picture = buttonPicture(button.picture());
  if (picture != nullptr && picture->bare) return drawBare(canvas, *picture, area, hovered);
  const Look look = lookOf(button, hovered, canvas.tones());
  const int line = canvas.pixels(button_looks::line) < 1 ? 1 : canvas.pixels(button_looks::line);
  canvas.frame(area, {static_cast<double>(canvas.pixels(button_looks::corner)), line,
                      canvas.tones().ink(looks::accent), look.fill});
  const std::wstring caption = utf16(button.caption());
  const Font font{button_looks::caption_points, true};
  const SIZE text = canvas.textSize(caption, font);
  const int icon = picture == nullptr ? 0 : canvas.pixels(button_looks::icon);
  const int gap = picture == nullptr ? 0 : canvas.pixels(button_looks::gap);
  const int shift = isPressedPicture(button.picture()) ? line : 0;
  const int left = middle(area.left, area.right, icon + gap + static_cast<int>(text.cx)) + shift;
  if (picture != nullptr) {
    canvas.picture(picture->strokes, left, middle(area.top, area.bottom, icon) + shift, icon,
                   look.ink);
  }
  const PictureButton& named = button.under() != nullptr ? *button.under() : button;
  const int top = middle(area.top, area.bottom, static_cast<int>(text.cy)) + shift;
  const int letter = looks::mnemonicPosition(std::wstring_view(caption), named.mnemonic());
  canvas.text({left + icon + gap, top, area.right, area.bottom},
              {caption, font, TextAlignment::left, 0, letter, look.ink});
}

void drawPictureBox(const Canvas& canvas, const PictureBox& box, const RECT& area) {
  canvas.fill(area, canvas.tones().ground(box.backColour()));
}

void drawField(const Canvas& canvas, const Control& control, const RECT& area, bool focused) {
  const Tones& tones = canvas.tones();
  const Colour border = focused ? looks::focus_ring : looks::field_border;
  canvas.frame(
      area, {static_cast<double>(canvas.pixels(looks::field_corner)), canvas.line(focused ? 2 : 1),
             tones.ink(border), tones.ground(control.backColour())});
}

RECT textAreaOf(const RECT& field, int text_height, const Zoom& zoom) {
  const int beside = zoom.pixels(looks::field_margin) + 2 * std::max(1, zoom.pixels(15));
  const int top = middle(field.top, field.bottom, text_height);
  return {field.left + beside, top, field.right - beside, top + text_height};
}

void drawTextBox(const Canvas& canvas, const TextBox& box, const RECT& area, bool focused) {
  drawField(canvas, box, area, focused);
  const std::wstring text = utf16(box.text());
  const int height = canvas.textSize(text, box.font()).cy;
  const RECT room = textAreaOf(area, height, canvas.zoom());
  const SavedDc saved(canvas.dc());
  IntersectClipRect(canvas.dc(), room.left, area.top, room.right, area.bottom);
  canvas.text(room,
              {text, box.font(), box.alignment(), 0, -1, canvas.tones().ink(box.foreColour())});
}

void drawList(const Canvas& canvas, const DropDownList& list, const RECT& area, bool focused) {
  drawField(canvas, list, area, focused);
  const std::wstring text = utf16(list.text());
  const int height = canvas.textSize(text, list.font()).cy;
  RECT room = textAreaOf(area, height, canvas.zoom());
  const double size = canvas.pixels(looks::list_arrow);
  const double x = room.right - size / 2;
  const double y = (area.top + area.bottom) / 2.0;
  const std::array<std::pair<double, double>, 3> arrow = {
      {{x - size / 2, y - size / 4}, {x, y + size / 4}, {x + size / 2, y - size / 4}}};
  canvas.polyline(arrow, std::max(1.0, size / 6), canvas.tones().ink(looks::accent));
  room.right -= static_cast<LONG>(size) + canvas.pixels(looks::field_margin);
  const SavedDc saved(canvas.dc());
  IntersectClipRect(canvas.dc(), room.left, area.top, room.right, area.bottom);
  canvas.text(room,
              {text, list.font(), list.alignment(), 0, -1, canvas.tones().ink(list.foreColour())});
}

void drawOption(const Canvas& canvas, const OptionButton& option, const RECT& area, bool focused) {
  const Tones& tones = canvas.tones();
  const double side = canvas.pixels(looks::option_mark) - 1;
  const double pen = side / 10;
  const double x = area.left + side / 2;
  const double y = (area.top + area.bottom) / 2.0;
  canvas.circle(x, y, side * 0.45, pen,
                tones.ink(option.value() ? looks::accent : looks::field_border), tones.base());
  if (option.value()) canvas.circle(x, y, side * 0.24, 0, 0, tones.ink(looks::accent));
  const std::wstring text = utf16(option.text());
  const SIZE size = canvas.textSize(text, option.font());
  RECT room = area;
  room.left = static_cast<LONG>(x + side / 2) + 2 * canvas.pixels(looks::field_margin);
  room.top = middle(area.top, area.bottom, size.cy);
  const int letter = looks::mnemonicPosition(std::wstring_view(text), option.mnemonic());
  canvas.text(
      room, {text, option.font(), TextAlignment::left, 0, letter, tones.ink(option.foreColour())});
  if (!focused) return;
  const int reach = canvas.pixels(looks::ring_gap);
  drawRing(canvas, {room.left - reach, room.top - canvas.line(2), room.left + size.cx + reach,
                    room.top + size.cy + canvas.line(2)});
}

RECT ringAround(const Canvas& canvas, const Control& control, const RECT& area) {
  RECT ring = area;
  if (control.kind() == ControlKind::label) {
    const auto& label = static_cast<const Label&>(control);
    const std::wstring text = utf16(looks::shownText(label));
    const int width = canvas.textSize(text, label.font(), wrapOf(label)).cx;
    const int spare = std::max(0, static_cast<int>(ring.right - ring.left) - width);
    if (label.alignment() == TextAlignment::left) ring.right -= spare;
    if (label.alignment() == TextAlignment::right) ring.left += spare;
  }
  return shrunk(ring, -canvas.pixels(looks::ring_gap));
}

void drawRing(const Canvas& canvas, const RECT& ring) {
  canvas.frame(ring, {static_cast<double>(canvas.pixels(looks::ring_corner)), canvas.line(2),
                      canvas.tones().ink(looks::focus_ring), std::nullopt});
}

}  // namespace depcalc::native
