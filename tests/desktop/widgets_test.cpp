// Every kind of control as a widget: what a user's keys and mouse do to the model.
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

#include "tests/desktop/page_fixture.h"
#include "values/runtime_error.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Widgets = PageTest;

TEST_F(Widgets, StandWhereTwipsSayAtEveryZoom) {
  EXPECT_EQ(widget(screen.NameText).geometry(), QRect(133, 20, 200, 21));
  for (const int zoom : {75, 100, 125, 150, 200, 300}) {
    surface.setScale(desktop::Scale(96, zoom));
    const QRect first = widget(screen.GoButton.normal).geometry();
    EXPECT_EQ(first, surface.scale().rect({300, 5000, 1500, 420})) << zoom;
    EXPECT_EQ(widget(root).size(), QSize(6 * zoom, 4 * zoom)) << zoom;
  }
}

TEST_F(Widgets, FollowTheModel) {
  screen.NameText.setText("Lathe");
  EXPECT_EQ(widget<QLineEdit>(screen.NameText).text(), "Lathe");
  screen.KindList.setIndex(2);
  EXPECT_EQ(widget<QComboBox>(screen.KindList).currentText(), "Three");
  screen.SecondOption.setValue(true);
  EXPECT_TRUE(widget<QRadioButton>(screen.SecondOption).isChecked());
  screen.NameText.hide();
  EXPECT_FALSE(widget(screen.NameText).isVisible());
  screen.Box.setPlace({0, 0, 300, 150});
  EXPECT_EQ(widget(screen.Box).geometry(), QRect(0, 0, 20, 10));
}

TEST_F(Widgets, OfferEveryKeyToTheModelBeforeItReachesTheText) {
  std::u32string keys;
  std::vector<std::string> changes;
  screen.NameText.onKeyPress = [&](char32_t key, bool& discard) {
    keys.push_back(key);
    discard = key == U'x';
  };
  screen.NameText.onChange = [&] { changes.push_back(screen.NameText.text()); };
  click(screen.NameText);
  type("axb");
  key(Qt::Key_Backspace);
  key(Qt::Key_Left);
  key(Qt::Key_Delete);
  key(Qt::Key_Return);
  EXPECT_EQ(keys, U"axb\b\r");
  EXPECT_THAT(changes, ElementsAre("a", "ab", "a", ""));
}

TEST_F(Widgets, TypeAtTheCaret) {
  click(screen.NameText);
  type("ac");
  key(Qt::Key_Left);
  type("b");
  EXPECT_EQ(screen.NameText.text(), "abc");
}

TEST_F(Widgets, ComposedCharactersAreOfferedToo) {
  std::u32string keys;
  screen.NameText.onKeyPress = [&](char32_t key, bool& discard) {
    keys.push_back(key);
    discard = key == U'é';
  };
  click(screen.NameText);
  QInputMethodEvent event;
  event.setCommitString(QStringLiteral("éü"));
  QApplication::sendEvent(&widget(screen.NameText), &event);
  EXPECT_EQ(keys, U"éü");
  EXPECT_EQ(screen.NameText.text(), "ü");
}

TEST_F(Widgets, PastingRaisesChangeAlone) {
  int keys = 0;
  screen.NameText.onKeyPress = [&](char32_t, bool&) { ++keys; };
  click(screen.NameText);
  QApplication::clipboard()->setText(QStringLiteral("pasted"));
  key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(screen.NameText.text(), "pasted");
  EXPECT_EQ(keys, 0);
}

TEST_F(Widgets, ShowWhatTheModelMakesOfATyping) {
  screen.AmountText.onChange = [&] {
    if (screen.AmountText.text() == "1x") screen.AmountText.setText("");
  };
  click(screen.AmountText);
  type("1x");
  EXPECT_EQ(widget<QLineEdit>(screen.AmountText).text(), "");
}

TEST_F(Widgets, FocusStaysWhereARejectionWantsIt) {
  int validated = 0;
  screen.NameText.onValidate = [&](bool& cancel) {
    ++validated;
    cancel = true;
  };
  click(screen.NameText);
  click(screen.AmountText);
  key(Qt::Key_Tab);
  click(screen.KindList);
  click(screen.SecondOption);
  QTest::mouseClick(widget<QAbstractScrollArea>(screen.Table).viewport(), Qt::LeftButton);
  EXPECT_EQ(validated, 5);
  EXPECT_TRUE(widget(screen.NameText).hasFocus());
  EXPECT_FALSE(screen.SecondOption.value());
  EXPECT_THAT(screen.said, IsEmpty());
  widget(screen.AmountText).setFocus();  // as an assistive tool does
  QApplication::processEvents();
  EXPECT_EQ(validated, 6);
  EXPECT_TRUE(widget(screen.NameText).hasFocus());
}

TEST_F(Widgets, LabelsAndButtonsValidateNothing) {
  int validated = 0;
  screen.NameText.onValidate = [&](bool&) { ++validated; };
  click(screen.NameText);
  click(screen.NameLabel);
  click(screen.GoButton.normal);
  EXPECT_THAT(screen.said, ElementsAre("help name", "go"));
  EXPECT_EQ(validated, 0);
  EXPECT_TRUE(widget(screen.NameText).hasFocus());
}

TEST_F(Widgets, AnotherWindowValidatesNothing) {
  int validated = 0;
  screen.NameText.onValidate = [&](bool&) { ++validated; };
  click(screen.NameText);
  QWidget other;
  other.show();
  other.activateWindow();
  QApplication::processEvents();
  EXPECT_EQ(validated, 0);
  EXPECT_TRUE(screen.NameText.hasFocus());
}

TEST_F(Widgets, HidingAScreenDropsTheFocusWithoutValidating) {
  int validated = 0;
  screen.NameText.onValidate = [&](bool&) { ++validated; };
  click(screen.NameText);
  screen.hide();
  EXPECT_EQ(validated, 0);
  EXPECT_EQ(stage.focused(), nullptr);
  EXPECT_EQ(QApplication::focusWidget(), &page);
  screen.show();
  key(Qt::Key_Tab);
  EXPECT_TRUE(widget(screen.NameText).hasFocus()) << "Tab starts at the first field";
}

TEST_F(Widgets, ListsChooseByKeyAndMouse) {
  click(screen.NameText);
  key(Qt::Key_Tab);
  key(Qt::Key_Tab);
  ASSERT_TRUE(screen.KindList.hasFocus());
  key(Qt::Key_Down);
  EXPECT_EQ(screen.KindList.text(), "One");
  key(Qt::Key_Down);
  EXPECT_EQ(screen.KindList.text(), "Two");
  key(Qt::Key_T);
  EXPECT_EQ(screen.KindList.text(), "Three") << "the next one that begins with the letter";
  emit widget<QComboBox>(screen.KindList).activated(0);
  EXPECT_EQ(screen.KindList.text(), "One");
}

TEST_F(Widgets, TheWheelChangesNoList) {
  click(screen.KindList);
  widget<QComboBox>(screen.KindList).hidePopup();
  screen.KindList.setIndex(1);
  QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&widget(screen.KindList), &wheel);
  EXPECT_EQ(screen.KindList.index(), 1);
}

TEST_F(Widgets, OptionsAreChosenByClickArrowAndSpace) {
  click(screen.FirstOption);
  EXPECT_TRUE(screen.FirstOption.value());
  key(Qt::Key_Right);
  EXPECT_TRUE(screen.SecondOption.value());
  EXPECT_FALSE(widget<QRadioButton>(screen.FirstOption).isChecked());
  screen.FirstOption.SetFocus();
  key(Qt::Key_Space);
  EXPECT_TRUE(screen.FirstOption.value());
}

TEST_F(Widgets, AButtonActsOnReleaseOverIt) {
  QWidget& button = widget(screen.GoButton.normal);
  QTest::mousePress(&button, Qt::LeftButton);
  EXPECT_TRUE(widget(screen.GoButton.pressed).isVisible());
  EXPECT_THAT(screen.said, IsEmpty());
  QTest::mouseRelease(&button, Qt::LeftButton, Qt::NoModifier, {-50, -50});
  EXPECT_THAT(screen.said, IsEmpty()) << "released elsewhere";
  EXPECT_FALSE(widget(screen.GoButton.pressed).isVisible());
  click(screen.GoButton.normal);
  EXPECT_THAT(screen.said, ElementsAre("go"));
}

TEST_F(Widgets, APressThatActedSwallowsItsRelease) {
  screen.GoButton.normal.onMouseDown = [&] { screen.GoButton.normal.releaseNow(); };
  click(screen.GoButton.normal);
  EXPECT_THAT(screen.said, ElementsAre("go"));
}

TEST_F(Widgets, AnErrorThatNothingTrapsEndsTheActionAlone) {
  screen.NameLabel.onClick = [] { throw RuntimeError::overflow(); };
  click(screen.NameLabel);
  click(screen.GoButton.normal);
  EXPECT_THAT(screen.said, ElementsAre("go"));
}

}  // namespace
}  // namespace depcalc::testing
