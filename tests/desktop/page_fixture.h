// A small screen, shown by real widgets.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtTest>

#include "desktop/site/desktop_site.h"
#include "desktop/widgets/page.h"
#include "desktop/widgets/surface.h"
#include "tests/support/small_screen.h"

namespace depcalc::testing {

struct PageTest : ::testing::Test {
  PageTest() : site(window, 96, [] { return Date::strict(2024, 6, 15); }, {}) {
    window.resize(800, 600);
    page.resize(800, 600);
    root.show();
    screen.show();
    page.showControl(root, surface);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QApplication::processEvents();
  }

  template <typename Kind = QWidget>
  Kind& widget(const Control& control) {
    auto* const found = dynamic_cast<Kind*>(surface.widget(control));
    EXPECT_NE(found, nullptr) << control.name();
    return *found;
  }
  void click(const Control& control) {
    QTest::mouseClick(&widget(control), Qt::LeftButton);
    QApplication::processEvents();
  }
  /// To whatever has the focus.
  static void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    QApplication::processEvents();
  }
  static void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }

  QWidget window;
  desktop::DesktopSite site;
  Stage stage{site};
  SmallRoot root{stage};
  SmallScreen& screen = root.screen;
  desktop::Surface surface{stage, desktop::Scale(96), desktop::Colours(QPalette())};
  desktop::Page page{&window};
};

}  // namespace depcalc::testing
