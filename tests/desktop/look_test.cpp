// Colours and texts: readable on light and dark desktops, broken alike at every zoom.
#include <cmath>

#include "controls/colour_scheme.h"
#include "desktop/widgets/text_block.h"
#include "tests/desktop/page_fixture.h"

namespace depcalc::testing {
namespace {

using desktop::Colours;
using desktop::Scale;
using desktop::TextBlock;

QPalette darkPalette() {
  QPalette palette;
  palette.setColor(QPalette::Base, QColor(30, 30, 30));
  palette.setColor(QPalette::Text, QColor(230, 230, 230));
  return palette;
}

double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

/// As the web's accessibility guidelines measure it; 4.5 is what they ask of small texts.
double contrast(const QColor& a, const QColor& b) {
  const auto [low, high] = std::minmax({luminance(a), luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

TEST(Look, TextsAreReadableOnEveryBackgroundTheyStandOn) {
  const std::pair<Colour, Colour> pairs[] = {
      {scheme::dark_red, scheme::cream}, {scheme::dark_red, scheme::white},
      {scheme::dark_red, scheme::tan},   {scheme::cream, scheme::dark_red},
      {window_text, scheme::white},      {window_text, window_background},
      {window_text, scheme::cream},      {window_text, scheme::light_grey},
      {window_text, scheme::tan}};
  for (const bool dark : {false, true}) {
    const Colours colours(dark ? darkPalette() : QPalette());
    EXPECT_EQ(colours.dark(), dark);
    for (const auto& [fore, back] : pairs) {
      EXPECT_GE(contrast(colours.of(fore), colours.of(back)), 4.5)
          << colours.of(fore).name().toStdString() << " on "
          << colours.of(back).name().toStdString();
    }
    EXPECT_GE(contrast(colours.text(), colours.selection()), 4.5);
    EXPECT_GE(contrast(colours.focusRing(), colours.base()), 3.0);
    EXPECT_GE(contrast(colours.focusRing(), colours.paper()), 3.0);
  }
}

TEST(Look, GivenColoursAreAsGivenOnALightDesktop) {
  const Colours colours{QPalette()};
  EXPECT_EQ(colours.of(scheme::dark_red), QColor(102, 0, 0));
  EXPECT_EQ(colours.of(Colour::rgb(1, 2, 3)), QColor(1, 2, 3));
}

TEST(Look, TextsBreakAtTheSameWordsAtEveryZoom) {
  const QString text = QStringLiteral(
      "To determine basis, add up all the costs of placing this asset in service. Include asset "
      "cost, sales tax, shipping and delivery, installation charges, and other incidental costs.");
  const TextBlock usual(text, {9}, Scale(96), 5000);
  for (int zoom = desktop::minimum_zoom; zoom <= desktop::maximum_zoom; zoom += 5) {
    const TextBlock block(text, {9}, Scale(96, zoom), 5000);
    EXPECT_NEAR(block.height() / usual.height(), zoom / 100.0, 0.02 * zoom / 100) << zoom;
  }
}

TEST(Look, ATextFitsWhereItWasMeasuredToFit) {
  for (const char* text : {"Using this calculator", "Why is the DDB total different?", "W"}) {
    const TextExtent extent = desktop::measuredText(text, {9, true}, 0, Scale(96));
    const TextBlock wrapped(text, {9, true}, Scale(96), extent.width);
    EXPECT_LE(Scale(96).twips(wrapped.height()), extent.height) << text;
  }
  const TextExtent two = desktop::measuredText("a\r\nb", {9}, 0, Scale(96));
  EXPECT_EQ(two.height, 2 * desktop::measuredText("a", {9}, 0, Scale(96)).height);
}

TEST(Look, MnemonicsStandAtWordStartsFirst) {
  EXPECT_EQ(desktop::mnemonicPosition("Print", 'P'), 0);
  EXPECT_EQ(desktop::mnemonicPosition("  View All   Assets  ", 'A'), 7);
  EXPECT_EQ(desktop::mnemonicPosition("Delete", 'T'), 4);
  EXPECT_EQ(desktop::mnemonicPosition("Delete", 'X'), -1);
  EXPECT_EQ(desktop::mnemonicPosition("Delete", 0), -1);
}

TEST_F(PageTest, TheFieldWithTheFocusIsRinged) {
  const auto edge = [this] {
    const QImage drawn = widget(screen.NameText).grab().toImage();
    return drawn.pixelColor(0, drawn.height() / 2);
  };
  const QColor before = edge();
  click(screen.NameText);
  EXPECT_EQ(edge(), surface.colours().focusRing());
  EXPECT_NE(before, edge());
}

}  // namespace
}  // namespace depcalc::testing
