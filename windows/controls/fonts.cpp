#include "windows/controls/fonts.h"

#include <array>
#include <cmath>

namespace depcalc::native {
namespace {

constexpr double points_per_inch = 72;
constexpr std::array families = {L"Segoe UI", L"Tahoma", L"DejaVu Sans", L"Verdana"};

int CALLBACK found(const LOGFONTW* /*font*/, const TEXTMETRICW* /*metrics*/, DWORD type,
                   LPARAM result) {
  if ((type & TRUETYPE_FONTTYPE) == 0) return 1;
  *reinterpret_cast<bool*>(result) = true;
  return 0;
}

bool isThere(HDC dc, const wchar_t* family) {
  LOGFONTW wanted{};
  wanted.lfCharSet = DEFAULT_CHARSET;
  lstrcpynW(wanted.lfFaceName, family, LF_FACESIZE);
  bool is_there = false;
  EnumFontFamiliesExW(dc, &wanted, found, reinterpret_cast<LPARAM>(&is_there), 0);
  return is_there;
}

std::wstring messageFamily() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return metrics.lfMessageFont.lfFaceName;
}

}  // namespace

std::wstring usualFamily() {
  const MemoryDc dc;
  std::wstring family = messageFamily();
  if (!family.empty() && isThere(dc.get(), family.c_str())) return family;
  for (const wchar_t* const other : families) {
    if (isThere(dc.get(), other)) return other;
  }
  return family;
}

HFONT Fonts::of(const Font& font) {
  const int height = static_cast<int>(std::lround(font.size * pixels_per_inch_ / points_per_inch));
  FontHandle& kept = made_[{height, font.bold, font.underline}];
  if (kept.get() == nullptr) {
    kept = FontHandle(CreateFontW(-height, 0, 0, 0, font.bold ? FW_BOLD : FW_NORMAL, FALSE,
                                  font.underline ? TRUE : FALSE, FALSE, DEFAULT_CHARSET,
                                  OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                                  DEFAULT_PITCH | FF_SWISS, family_.c_str()));
  }
  return kept.get();
}

}  // namespace depcalc::native
