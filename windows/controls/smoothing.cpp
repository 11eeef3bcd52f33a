#include "windows/controls/smoothing.h"

#include <algorithm>
#include <cstdint>

#include "windows/controls/gdi_handles.h"

namespace depcalc::native {
namespace {

constexpr int fineness = 4;  // dots to the side of a pixel while a shape is drawn

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

bool isOfPixels(HDC dc) {
  const DWORD kind = GetObjectType(dc);
  return (kind == OBJ_DC || kind == OBJ_MEMDC) && GetDeviceCaps(dc, TECHNOLOGY) == DT_RASDISPLAY &&
         GetMapMode(dc) == MM_TEXT && GetGraphicsMode(dc) == GM_COMPATIBLE;
}

}  // namespace

Smoothing::Smoothing(HDC dc) : dc_(dc), has_pixels_(isOfPixels(dc)) {}

void Smoothing::show(const RECT& area, const Draw& draw) const {
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  if (width <= 0 || height <= 0) return;
  if (!has_pixels_) return draw({dc_, 1, 0, 0});
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

void Smoothing::drawCorners(const RECT& area, int side, const Draw& draw) const {
  const int across = std::min<int>(side, (area.right - area.left + 1) / 2);
  const int down = std::min<int>(side, (area.bottom - area.top + 1) / 2);
  for (const LONG left : {area.left, area.right - across}) {
    for (const LONG top : {area.top, area.bottom - down}) {
      show({left, top, left + across, top + down}, draw);
    }
  }
}

}  // namespace depcalc::native
