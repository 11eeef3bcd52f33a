// Screens drawn on any device, pages on paper, and colours that can be read.
#include <array>
#include <cmath>

#include "controls/colour_scheme.h"
#include "tests/windows/controls/metafile_texts.h"
#include "tests/windows/controls/native_fixture.h"
#include "windows/com/com_text.h"
#include "windows/controls/realized_palette.h"
#include "windows/controls/screen_drawing.h"

namespace depcalc::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::SizeIs;

struct Drawing : ::testing::Test {
  Drawing() {
    SmallScreen& screen = model.root.screen;
    screen.NameText.setText("Lathe \xC3\xA9");
    screen.KindList.setIndex(1);
    screen.Table.setText(1, 1, "12.50");
    screen.Table.setText(3, 2, "a text that is broken into lines");
  }
  std::vector<std::string> expected() const {
    return {"A small screen:", "Name",  "Using this screen",
            "Lathe \xC3\xA9",  "Two",   "First",
            "Second",          "12.50", "Go on"};
  }

  SmallModel model;
};

TEST_F(Drawing, WritesAllTextsIntoAnEnhancedMetafile) {
  const HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  native::drawScreen(dc, {0, 0, 600, 400}, model.root);
  const HENHMETAFILE file = CloseEnhMetaFile(dc);
  const std::vector<std::string> texts = textsIn(file);
  EXPECT_THAT(texts, IsSupersetOf(expected()));
  DeleteEnhMetaFile(file);
}

TEST_F(Drawing, LeavesOutWhatIsHidden) {
  model.root.screen.NameLabel.hide();
  model.root.screen.GoButton.setVisible(false);
  const HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  native::drawScreen(dc, {0, 0, 600, 400}, model.root);
  const HENHMETAFILE file = CloseEnhMetaFile(dc);
  EXPECT_THAT(textsIn(file), Not(Contains("Name")));
  EXPECT_THAT(textsIn(file), Not(Contains("Go on")));
  DeleteEnhMetaFile(file);
}

/// The pixels of a bitmap that something is drawn on.
class Sheet {
 public:
  Sheet(int width, int height) : width_(width), height_(height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_ =
        native::BitmapHandle(CreateDIBSection(dc_.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    bits_ = static_cast<const std::uint32_t*>(bits);
    former_ = SelectObject(dc_.get(), bitmap_.get());
    PatBlt(dc_.get(), 0, 0, width, height, WHITENESS);
  }
  ~Sheet() { SelectObject(dc_.get(), former_); }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  [[nodiscard]] HDC dc() const { return dc_.get(); }
  /// Of the pixels inside, the part that is darker than half.
  [[nodiscard]] double ink(const RECT& area) const {
    GdiFlush();
    int dark = 0;
    for (int y = area.top; y < area.bottom; ++y) {
      for (int x = area.left; x < area.right; ++x) {
        if ((bits_[y * width_ + x] >> 8 & 0xFF) < 0x80) ++dark;
      }
    }
    return static_cast<double>(dark) / ((area.right - area.left) * (area.bottom - area.top));
  }
  [[nodiscard]] RECT all() const { return {0, 0, width_, height_}; }

 private:
  int width_;
  int height_;
  native::MemoryDc dc_;
  native::BitmapHandle bitmap_;
  const std::uint32_t* bits_ = nullptr;
  HGDIOBJ former_ = nullptr;
};

TEST_F(Drawing, FillsTheBoundsWhateverTheDevicesMapping) {
  const Sheet plain(600, 400);
  native::drawScreen(plain.dc(), plain.all(), model.root);
  const double ink = plain.ink(plain.all());
  EXPECT_GT(ink, 0.005);

  const Sheet mapped(600, 400);
  SetMapMode(mapped.dc(), MM_HIMETRIC);
  POINT corner{600, 400};
  DPtoLP(mapped.dc(), &corner, 1);
  native::drawScreen(mapped.dc(), {0, 0, corner.x, corner.y}, model.root);
  EXPECT_EQ(GetMapMode(mapped.dc()), MM_HIMETRIC) << "as it was";
  SetMapMode(mapped.dc(), MM_TEXT);
  EXPECT_NEAR(mapped.ink(mapped.all()), ink, ink / 10);

  const Sheet corner_alone(600, 400);
  native::drawScreen(corner_alone.dc(), {0, 0, 300, 200}, model.root);
  EXPECT_GT(corner_alone.ink({0, 0, 300, 200}), 0.005);
  EXPECT_EQ(corner_alone.ink({300, 0, 600, 400}), 0);
  EXPECT_EQ(corner_alone.ink({0, 200, 300, 400}), 0);
}

TEST_F(Drawing, GoesIntoAMetafileOfTheOldKind) {
  const HDC dc = CreateMetaFileW(nullptr);
  SetMapMode(dc, MM_ANISOTROPIC);
  SetWindowExtEx(dc, 600, 400, nullptr);
  native::drawScreen(dc, {0, 0, 600, 400}, model.root);
  const HMETAFILE file = CloseMetaFile(dc);
  ASSERT_NE(file, nullptr);
  const Sheet sheet(600, 400);
  SetMapMode(sheet.dc(), MM_ANISOTROPIC);
  SetViewportExtEx(sheet.dc(), 600, 400, nullptr);
  PlayMetaFile(sheet.dc(), file);
  EXPECT_GT(sheet.ink(sheet.all()), 0.005);
  DeleteMetaFile(file);
}

TEST_F(Drawing, DrawsNothingForAScreenWithoutSize) {
  model.root.setSize(0, 0);
  const Sheet sheet(100, 100);
  native::drawScreen(sheet.dc(), sheet.all(), model.root);
  EXPECT_EQ(sheet.ink(sheet.all()), 0);
}

TEST(Texts, BreakAtTheSameWordsAtEveryResolution) {
  native::TextMeasure measure(native::usualFamily());
  const std::wstring text =
      L"Estimate the amount you expect the asset to be worth at the end of its useful life, and "
      L"enter it here.\r\n\r\nA new paragraph.";
  const auto lines = measure.lines(text, {8}, 3000);
  ASSERT_GT(lines.size(), 4U);
  for (const native::TextLine& line : lines) EXPECT_LE(line.width, 3000);
  EXPECT_EQ(lines.back().start + lines.back().length, text.size());
  EXPECT_THAT(measure.lines(L"", {8}, 3000), SizeIs(1));
  EXPECT_THAT(measure.lines(L"a\nb", {8}, 0), SizeIs(2));
  const auto broken = measure.lines(std::wstring(400, L'w'), {8}, 3000);
  EXPECT_GT(broken.size(), 3U) << "a word wider than a line is broken";
}

double luminance(COLORREF colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(GetRValue(colour) / 255.0) + 0.7152 * linear(GetGValue(colour) / 255.0) +
         0.0722 * linear(GetBValue(colour) / 255.0);
}

/// As the web's accessibility guidelines measure it; 4.5 is what they ask of small texts.
double contrast(COLORREF a, COLORREF b) {
  const auto [low, high] = std::minmax({luminance(a), luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

TEST(Tones, KeepTextsReadableOnEveryGroundTheyStandOn) {
  const std::array<std::pair<Colour, Colour>, 9> pairs = {{{scheme::dark_red, scheme::cream},
                                                           {scheme::dark_red, scheme::white},
                                                           {scheme::dark_red, scheme::tan},
                                                           {scheme::cream, scheme::dark_red},
                                                           {window_text, window_background},
                                                           {window_text, looks::heading},
                                                           {window_text, looks::selection},
                                                           {window_text, looks::caption},
                                                           {looks::paper, looks::accent}}};
  const native::AmbientColours light{RGB(0, 0, 0), RGB(255, 255, 255)};
  const native::AmbientColours dark{RGB(230, 230, 230), RGB(30, 30, 30)};
  for (const native::AmbientColours& ambient : {light, dark}) {
    const native::Tones tones(ambient, false);
    for (const auto& [ink, ground] : pairs) {
      EXPECT_GE(contrast(tones.inkOn(ground, ink), tones.ground(ground)), 4.5)
          << std::hex << ink.value() << " on " << ground.value() << (tones.dark() ? " dark" : "");
    }
  }
  const native::Tones high(light, true);
  for (const auto& [ink, ground] : pairs) {
    const COLORREF below = high.ground(ground);
    const bool marked = below == GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_TRUE(marked || below == GetSysColor(COLOR_WINDOW)) << std::hex << ground.value();
    EXPECT_EQ(high.inkOn(ground, ink), GetSysColor(marked ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT))
        << "the user's own pair of colours";
  }
  EXPECT_TRUE(native::Tones(dark, false).dark());
  EXPECT_EQ(native::Tones(light, false).ground(scheme::tan), RGB(225, 197, 168)) << "as given";
}

TEST_F(Drawing, TakesThePaletteOfThePageAroundIt) {
  EXPECT_EQ(native::paletteInUse(model.root.screen.NameText), nullptr);
  const Palette few{{Colour::rgb(1, 2, 3), Colour::rgb(4, 5, 6)}};
  model.root.setPalette(few);
  EXPECT_EQ(native::paletteInUse(model.root.screen.NameText), nullptr) << "not in use";
  model.root.setPaletteMode(2);
  const Palette* const used = native::paletteInUse(model.root.screen.NameText);
  ASSERT_NE(used, nullptr);
  EXPECT_EQ(*used, few);
}

TEST(Palettes, HoldTheFirst256Colours) {
  Palette many;
  for (int i = 0; i < 300; ++i) {
    const auto part = static_cast<std::uint8_t>(i);
    many.colours.push_back(Colour::rgb(part, 7, static_cast<std::uint8_t>(255 - part)));
  }
  const auto made = native::paletteOf(many);
  std::array<PALETTEENTRY, 300> entries{};
  ASSERT_EQ(GetPaletteEntries(made.get(), 0, 300, entries.data()), 256U);
  EXPECT_EQ(entries[200].peRed, 200);
  EXPECT_EQ(entries[200].peGreen, 7);
  EXPECT_EQ(entries[200].peBlue, 55);
  EXPECT_EQ(native::paletteOf({}).get(), nullptr);
}

}  // namespace
}  // namespace depcalc::testing
