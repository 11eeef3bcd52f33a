// The colours of a host's picture.
#include "windows/host/palette_picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <olectl.h>
#include <wrl/client.h>

#include "tests/support/error_of.h"
#include "tests/windows/host/host_class.h"
#include "windows/host/stored_variant.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

OwnedVariant pictureOf(PICTDESC description) {
  description.cbSizeofstruct = sizeof description;
  Microsoft::WRL::ComPtr<IDispatch> picture;
  OleCreatePictureIndirect(&description, IID_IDispatch, TRUE, &picture);
  OwnedVariant variant;
  variant.out()->vt = VT_DISPATCH;
  const_cast<VARIANT&>(variant.get()).pdispVal = picture.Detach();
  return variant;
}

/// A bitmap of two pixels and as many bits each.
HBITMAP bitmapOf(WORD bits, const std::vector<RGBQUAD>& table) {
  struct {
    BITMAPINFOHEADER header;
    RGBQUAD colours[256];
  } info{};
  info.header = {sizeof(BITMAPINFOHEADER),         2, 1, 1, bits, BI_RGB, 0, 0, 0,
                 static_cast<DWORD>(table.size()), 0};
  std::copy(table.begin(), table.end(), info.colours);
  void* pixels = nullptr;
  return CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &pixels,
                          nullptr, 0);
}

PICTDESC bitmapPicture(HBITMAP bitmap, HPALETTE palette = nullptr) {
  PICTDESC description{};
  description.picType = PICTYPE_BITMAP;
  description.bmp = {bitmap, palette};
  return description;
}

struct PalettePicture : ::testing::Test {
  testing_support::Apartment apartment;
};

TEST_F(PalettePicture, IsTheColourTableOfABitmap) {
  const OwnedVariant picture =
      pictureOf(bitmapPicture(bitmapOf(1, {{0x66, 0x00, 0x00, 0}, {0xE1, 0xC5, 0xA8, 0}})));
  EXPECT_THAT(pictureIn(picture)->colours, ElementsAre(0x00660000U, 0x00E1C5A8U));
}

TEST_F(PalettePicture, IsThePaletteOfAPictureThatHasOne) {
  struct {
    LOGPALETTE head;
    PALETTEENTRY more;
  } entries{{0x300, 2, {{1, 2, 3, 0}}}, {4, 5, 6, 0}};
  const OwnedVariant picture =
      pictureOf(bitmapPicture(bitmapOf(24, {}), CreatePalette(&entries.head)));
  EXPECT_THAT(pictureIn(picture)->colours, ElementsAre(0x00030201U, 0x00060504U));
}

TEST_F(PalettePicture, HasNoColoursWhereThePictureNamesNone) {
  EXPECT_THAT(pictureIn(pictureOf(bitmapPicture(bitmapOf(24, {}))))->colours, IsEmpty());
  PICTDESC none{};
  none.picType = PICTYPE_NONE;
  EXPECT_THAT(pictureIn(pictureOf(none))->colours, IsEmpty());
  EXPECT_THAT(pictureIn(OwnedVariant())->colours, IsEmpty());
}

OwnedVariant arrayOf(VARTYPE type, const std::vector<LONG>& numbers) {
  SAFEARRAY* array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(numbers.size()));
  for (LONG i = 0; i < static_cast<LONG>(numbers.size()); ++i) {
    VARIANT element{};
    element.vt = VT_I4;
    element.lVal = numbers[static_cast<std::size_t>(i)];
    void* value = type == VT_VARIANT ? static_cast<void*>(&element) : &element.lVal;
    SafeArrayPutElement(array, &i, value);
  }
  OwnedVariant made;
  VARIANT& variant = *made.out();
  variant.vt = static_cast<VARTYPE>(VT_ARRAY | type);
  variant.parray = array;
  return made;
}

TEST_F(PalettePicture, IsAnArrayOfColoursOfAHostWithoutPictures) {
  EXPECT_THAT(pictureIn(arrayOf(VT_VARIANT, {0x00E1C5A8, 0x66}))->colours,
              ElementsAre(0x00E1C5A8U, 0x00000066U));
  EXPECT_THAT(pictureIn(arrayOf(VT_I4, {0x02E1C5A8}))->colours, ElementsAre(0x00E1C5A8U));
  EXPECT_THAT(pictureIn(arrayOf(VT_I4, {}))->colours, IsEmpty());
}

TEST_F(PalettePicture, IsNoOtherAnswer) {
  EXPECT_EQ(errorOf([] { (void)pictureIn(variantOf(StoredValue::text("blue"))); }), 13);
  EXPECT_EQ(errorOf([] { (void)pictureIn(variantOf(StoredValue::integer(1))); }), 13);
}

}  // namespace
}  // namespace depcalc
