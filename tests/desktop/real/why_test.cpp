// "Why this amount?" beside the calculator, by keys: it follows the arrows, and its text is copied.
#include <QClipboard>
#include <QTextBrowser>

#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::HasSubstr;

struct RealWhy : RealWindow {
  void SetUp() override {
    open();
    newCompany();
    if (!gui([this] { return text() != nullptr; })) menu("Insight");
    ASSERT_TRUE(user.sees([this] { return text() != nullptr; }));
    enterAsset({"TRK-014", "Delivery truck", "1FTYR10D", "Warehouse", "9/15/2023", "", "5", "",
                "38450", "4000", "150000"});
    user.key("alt+c");
    ASSERT_EQ(shown(), "DepCalcDisplayCtl1");
  }

  /// The page's text while it is to be seen. On the window's thread.
  QTextBrowser* text() {
    auto* const browser = window->findChild<QTextBrowser*>("WhyText");
    return browser != nullptr && browser->isVisible() ? browser : nullptr;
  }
  bool seesHeading(const char* heading) {
    return user.sees([this, heading] {
      return text() != nullptr && text()->accessibleDescription() == QString::fromUtf8(heading);
    });
  }
  bool focusOn(const char* control) {
    for (int i = 0; i < 12; ++i) {
      const QString at = gui([] {
        const QWidget* const focused = QApplication::focusWidget();
        return focused == nullptr ? QString() : focused->objectName();
      });
      if (at == QString::fromUtf8(control)) return true;
      user.key("Tab");
    }
    return false;
  }
};

TEST_F(RealWhy, FollowsTheArrowsOverTheComparisonAndThenTheRegister) {
  ASSERT_TRUE(focusOn("DisplayTable"));
  const struct {
    const char* key;
    const char* heading;
  } steps[] = {{"Down", "Straight Line, FY2024: 6,890.00"},
               {"Down", "Straight Line, FY2025: 6,890.00"},
               {"Right", "Sum of the Years' Digits, FY2025: 9,186.67"},
               {"Down", "Sum of the Years' Digits, FY2026: 6,890.00"},
               {"Right", "Double Declining Balance, FY2026: 5,536.80"}};
  for (const auto& step : steps) {
    user.key(step.key);
    EXPECT_TRUE(seesHeading(step.heading)) << step.heading;
  }
  user.key("alt+s");
  ASSERT_EQ(shown(), "DepCalcView1");
  clickCell(14, 1);
  EXPECT_TRUE(seesHeading("Straight Line, FY2026: 6,890.00"));
  user.key("Down");
  EXPECT_TRUE(seesHeading("Straight Line, FY2027: 6,890.00"));
}

TEST_F(RealWhy, IsReadAndCopiedByKeys) {
  ASSERT_TRUE(focusOn("DisplayTable"));
  user.keys({"Down", "Down"});
  ASSERT_TRUE(seesHeading("Straight Line, FY2025: 6,890.00"));
  user.clicks(gui([this] { return text()->viewport(); }));
  EXPECT_TRUE(user.sees([this] { return text()->hasFocus(); }));
  user.keys({"ctrl+a", "ctrl+c"});
  const auto copied = [] {
    return gui([] { return QApplication::clipboard()->text().toStdString(); });
  };
  EXPECT_THAT(copied(), HasSubstr("Basis less salvage value"));
  EXPECT_THAT(copied(), HasSubstr("13,780.00 of 34,450.00"));
  EXPECT_EQ(shown(), "DepCalcDisplayCtl1");
}

}  // namespace
}  // namespace depcalc::testing
