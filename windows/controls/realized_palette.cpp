#include "windows/controls/realized_palette.h"

#include <algorithm>

#include "controls/user_control.h"

namespace depcalc::native {
namespace {

constexpr int custom_mode = 2;
constexpr std::size_t most_colours = 256;

void select(HDC dc, HPALETTE palette) {
  SelectPalette(dc, palette, FALSE);
  RealizePalette(dc);
}

}  // namespace

const Palette* paletteInUse(const Control& control) {
  for (const Control* at = &control; at != nullptr; at = at->parent()) {
    if (at->kind() != ControlKind::userControl) continue;
    const auto& page = static_cast<const UserControl&>(*at);
    if (page.palette().has_value() && page.paletteMode() == custom_mode) return &*page.palette();
  }
  return nullptr;
}

GdiHandle<HPALETTE> paletteOf(const Palette& palette) {
  const std::size_t count = std::min(palette.colours.size(), most_colours);
  std::vector<BYTE> memory(sizeof(LOGPALETTE) + count * sizeof(PALETTEENTRY));
  auto& wanted = *reinterpret_cast<LOGPALETTE*>(memory.data());
  wanted.palVersion = 0x300;
  wanted.palNumEntries = static_cast<WORD>(count);
  for (std::size_t i = 0; i < count; ++i) {
    const Colour colour = palette.colours[i];
    wanted.palPalEntry[i] = {colour.red(), colour.green(), colour.blue(), 0};
  }
  return GdiHandle<HPALETTE>(count == 0 ? nullptr : CreatePalette(&wanted));
}

RealizedPalette::RealizedPalette(HDC window, HDC buffer, const Control& control)
    : window_(window), buffer_(buffer) {
  const Palette* const palette = nearestFlag(window) == 0 ? nullptr : paletteInUse(control);
  if (palette != nullptr) palette_ = paletteOf(*palette);
  if (palette_.get() == nullptr) return;
  select(window_, palette_.get());
  select(buffer_, palette_.get());
}

RealizedPalette::~RealizedPalette() {
  if (palette_.get() == nullptr) return;
  const auto usual = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
  SelectPalette(window_, usual, FALSE);
  SelectPalette(buffer_, usual, FALSE);
}

COLORREF nearestFlag(HDC dc) {
  return (GetDeviceCaps(dc, RASTERCAPS) & RC_PALETTE) != 0 ? Colour::palette_flag : 0;
}

}  // namespace depcalc::native
