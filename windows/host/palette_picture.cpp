#include "windows/host/palette_picture.h"

#include <ocidl.h>
#include <olectl.h>

#include <array>

#include "values/runtime_error.h"
#include "windows/host/automation_object.h"
#include "windows/host/host_answers.h"

namespace depcalc {
namespace {

constexpr std::size_t most_colours = 256;

std::uint32_t colourOf(BYTE red, BYTE green, BYTE blue) { return RGB(red, green, blue); }

std::vector<std::uint32_t> coloursOf(HPALETTE palette) {
  std::array<PALETTEENTRY, most_colours> entries{};
  const UINT count = GetPaletteEntries(palette, 0, most_colours, entries.data());
  std::vector<std::uint32_t> colours;
  for (UINT i = 0; i < count; ++i) {
    colours.push_back(colourOf(entries[i].peRed, entries[i].peGreen, entries[i].peBlue));
  }
  return colours;
}

/// The colour table of a bitmap of at most 256 colours.
std::vector<std::uint32_t> coloursOf(HBITMAP bitmap) {
  std::vector<std::uint32_t> colours;
  const HDC device = CreateCompatibleDC(nullptr);
  if (device == nullptr) return colours;
  const HGDIOBJ before = SelectObject(device, bitmap);
  std::array<RGBQUAD, most_colours> table{};
  const UINT count = GetDIBColorTable(device, 0, most_colours, table.data());
  for (UINT i = 0; i < count; ++i) {
    colours.push_back(colourOf(table[i].rgbRed, table[i].rgbGreen, table[i].rgbBlue));
  }
  SelectObject(device, before);
  DeleteDC(device);
  return colours;
}

std::vector<std::uint32_t> coloursOf(IDispatch& object) {
  Microsoft::WRL::ComPtr<IPicture> picture;
  if (FAILED(object.QueryInterface(IID_PPV_ARGS(&picture)))) throw RuntimeError::typeMismatch();
  OLE_HANDLE palette = 0;
  OLE_HANDLE handle = 0;
  SHORT type = PICTYPE_NONE;
  picture->get_hPal(&palette);
  if (palette != 0)
    return coloursOf(static_cast<HPALETTE>(LongToHandle(static_cast<LONG>(palette))));
  picture->get_Type(&type);
  picture->get_Handle(&handle);
  if (type != PICTYPE_BITMAP || handle == 0) return {};
  return coloursOf(static_cast<HBITMAP>(LongToHandle(static_cast<LONG>(handle))));
}

std::vector<std::uint32_t> coloursIn(const OwnedVariant& answer) {
  std::vector<std::uint32_t> colours;
  if ((answer.type() & VT_ARRAY) != 0) {
    constexpr std::uint32_t rgb = 0x00FFFFFF;
    for (const StoredValue& colour : elementsOf(answer.get())) {
      colours.push_back(static_cast<std::uint32_t>(colour.asLong()) & rgb);
    }
    return colours;
  }
  const auto object = objectIn(answer);
  return object == nullptr ? colours : coloursOf(*object.Get());
}

}  // namespace

std::shared_ptr<const HostPicture> pictureIn(const OwnedVariant& answer) {
  return std::make_shared<const HostPicture>(HostPicture{coloursIn(answer)});
}

}  // namespace depcalc
