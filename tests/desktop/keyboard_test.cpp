// The keys that mean the same everywhere, and what assistive tools see.
#include <QAccessible>

#include "controls/button_pictures.h"
#include "controls/keyboard.h"
#include "tests/desktop/page_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Keyboard = PageTest;

TEST_F(Keyboard, TabWalksTheFieldsInTheirOrderAndBack) {
  page.setFocus();
  std::vector<std::string> visited;
  for (int i = 0; i < 9; ++i) {
    key(Qt::Key_Tab);
    visited.push_back(QApplication::focusWidget()->objectName().toStdString());
  }
  EXPECT_THAT(visited, ElementsAre("NameText", "AmountText", "KindList", "FirstOption",
                                   "SecondOption", "Table", "GoButton", "HelpLabel", "NameText"));
  for (int i = 0; i < 3; ++i) key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(stage.focused()->name(), "Table");
}

TEST_F(Keyboard, TabSelectsATextSoThatTypingReplacesIt) {
  screen.NameText.setText("old");
  page.setFocus();
  key(Qt::Key_Tab);
  type("n");
  EXPECT_EQ(screen.NameText.text(), "n");
}

TEST_F(Keyboard, AltAndTheLetterClickAButton) {
  click(screen.NameText);
  key(Qt::Key_G, Qt::AltModifier);
  EXPECT_THAT(screen.said, ElementsAre("go"));
  EXPECT_EQ(screen.NameText.text(), "") << "and write nothing";
  screen.GoButton.setVisible(false);
  key(Qt::Key_G, Qt::AltModifier);
  EXPECT_THAT(screen.said, ElementsAre("go"));
  EXPECT_EQ(screen.NameText.text(), "");
}

TEST_F(Keyboard, F1ExplainsTheFieldThatHasTheFocus) {
  click(screen.NameText);
  key(Qt::Key_F1);
  EXPECT_THAT(screen.said, ElementsAre("help name"));
  click(screen.AmountText);
  key(Qt::Key_F1);
  EXPECT_THAT(screen.said, ElementsAre("help name", "help")) << "no label of its own";
}

TEST_F(Keyboard, EscapeClosesThePopupInFront) {
  struct Popup : UserControl {
    Popup(UserControl& parent, std::string name) : UserControl(parent, std::move(name)) {
      setPlace({0, 0, 3000, 3000});
      Close.setPlace({2700, 60, 195, 195});
      Close.setRole(ButtonRole::close);
      Close.onClick = [this] { hide(); };
    }
    PictureButton Close{*this, "CloseButton", "close", "Close"};
  };
  Popup below(root, "Below");
  Popup above(root, "Above");
  page.showControl(root, surface);
  key(Qt::Key_Escape);
  below.show();
  above.show();
  below.bringToFront();
  key(Qt::Key_Escape);
  EXPECT_FALSE(below.visible());
  EXPECT_TRUE(above.visible());
  key(Qt::Key_Escape);
  EXPECT_FALSE(above.visible());
  page.clear();
}

/// Every object an assistive tool finds, with its path.
void walk(QAccessibleInterface& at, const QString& path, std::vector<std::string>& nameless,
          int& visited) {
  const QString name = at.text(QAccessible::Name);
  const QString here = path + u'/' + (at.object() ? at.object()->objectName() : QString());
  // Cells may be empty, and Qt makes a corner between headers even where those are hidden.
  const bool decoration = at.role() == QAccessible::ScrollBar || at.role() == QAccessible::Cell ||
                          (at.role() == QAccessible::Pane && at.object() == nullptr);
  ++visited;
  if (name.trimmed().isEmpty() && !decoration) {
    nameless.push_back(here.toStdString() + " role " + std::to_string(at.role()));
  }
  for (int i = 0; i < at.childCount(); ++i) {
    if (QAccessibleInterface* const child = at.child(i)) walk(*child, here, nameless, visited);
  }
}

TEST_F(Keyboard, EveryControlHasANameForAssistiveTools) {
  std::vector<std::string> nameless;
  int visited = 0;
  QAccessibleInterface* const top = QAccessible::queryAccessibleInterface(&widget(root));
  ASSERT_NE(top, nullptr);
  walk(*top, {}, nameless, visited);
  EXPECT_THAT(nameless, IsEmpty());
  EXPECT_GT(visited, 12);
  screen.NameLabel.setText("");
  screen.HelpLabel.setText("");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&widget(screen.NameText))
                ->text(QAccessible::Name)
                .toStdString(),
            "Name")
      << "as it was when the widget was made";
}

TEST_F(Keyboard, AssistiveToolsPressLabelsAndButtons) {
  const auto press = [this](const Control& control) {
    QAccessibleInterface* const found = QAccessible::queryAccessibleInterface(&widget(control));
    ASSERT_NE(found->actionInterface(), nullptr);
    found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QApplication::processEvents();
  };
  press(screen.NameLabel);
  press(screen.GoButton.normal);
  QTRY_COMPARE(screen.said.size(), 2U);
  EXPECT_THAT(screen.said, ElementsAre("help name", "go"));
}

TEST(Pictures, KnowEveryButtonOfTheCalculator) {
  for (const std::string name : {"calc", "new", "save", "edit", "delete", "print", "close"}) {
    EXPECT_TRUE(hasPicture(name)) << name;
    EXPECT_TRUE(hasPicture(name + "-pressed")) << name;
  }
  EXPECT_FALSE(hasPicture("nothing"));
}

}  // namespace
}  // namespace depcalc::testing
