// The first day, by keys and clicks from a fresh home directory.
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "desktop/window/guide_window.h"
#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::HasSubstr;

struct RealFirstDay : RealWindow {
  template <typename Widget>
  Widget* find(const char* name) {
    return gui([&] { return window->findChild<Widget*>(name); });
  }
  std::string hint() {
    return gui([this]() -> std::string {
      const auto* const bar = window->findChild<QWidget*>("HintBar");
      return bar->isVisible() ? window->findChild<QLabel*>("Hint")->text().toStdString() : "";
    });
  }
  QPushButton* startButton(const QString& caption) {
    return gui([&]() -> QPushButton* {
      for (auto* button : window->page().findChildren<QPushButton*>()) {
        if (QString(button->text()).remove(u'&') == caption) return button;
      }
      return nullptr;
    });
  }
  /// One that was closed may not be gone yet.
  desktop::GuideWindow* guide() {
    for (auto* found : window->findChildren<desktop::GuideWindow*>()) {
      if (found->isVisible()) return found;
    }
    return nullptr;
  }
  bool seesGuide(const QString& page) {
    return user.sees([&] {
      const desktop::GuideWindow* const at = guide();
      return at != nullptr && at->isActiveWindow() && at->page() == page;
    });
  }
  bool isDark() {
    return gui([] { return QApplication::palette().color(QPalette::Window).lightness() < 100; });
  }
  void clickRow(QListWidget* list, int row) {
    const QPoint place = gui([&] { return list->visualItemRect(list->item(row)).center(); });
    user.clicks(list->viewport(), place);
  }
};

TEST_F(RealFirstDay, LeadsFromTheSampleCompanyToTheGuide) {
  QPushButton* const sample = startButton("Open the Sample Company");
  ASSERT_NE(sample, nullptr);
  user.clicks(sample);
  ASSERT_TRUE(user.sees([this] { return window->calculator() != nullptr; }));
  EXPECT_EQ(shown(), "DepCalcView1");
  EXPECT_EQ(QDir(path("Documents")).entryList({"*.company"}),
            QStringList{"Sample Joinery.company"});
  EXPECT_TRUE(user.sees([this] { return window->findChild<QWidget*>("HintBar")->isVisible(); }));
  EXPECT_THAT(hint(), HasSubstr("This is a sample company"));
  user.clicks(find<QPushButton>("HintDismiss"));
  EXPECT_EQ(hint(), "");
  // The laptop, last of all, was imported without a method.
  clickCell(0, 1);
  user.key("End");
  EXPECT_THAT(hint(), HasSubstr("This asset has no method yet"));
  user.clicks(find<QPushButton>("HintMore"));
  EXPECT_TRUE(seesGuide("choosing-a-method.html#no-method"));
  user.key("Escape");
  EXPECT_TRUE(user.sees([this] { return window->isActiveWindow(); }));
}

TEST_F(RealFirstDay, TurnsDarkByKeysAndExplainsADialogThatWaits) {
  newCompany();
  EXPECT_FALSE(isDark());
  user.key("ctrl+comma");
  EXPECT_EQ(user.dialog().title, "Preferences");
  user.keys({"alt+a", "Down", "Down"});
  EXPECT_TRUE(
      user.sees([] { return QApplication::palette().color(QPalette::Window).lightness() < 100; }));
  user.key("F1");
  ASSERT_TRUE(seesGuide("window.html#preferences"));
  // The dialog waits, and the guide can be read meanwhile.
  clickRow(find<QListWidget>("GuideContents"), 8);
  EXPECT_TRUE(seesGuide("backups.html"));
  user.key("ctrl+f");
  user.types("salvage");
  EXPECT_TRUE(
      user.sees([this] { return window->findChild<QListWidget*>("GuideContents")->count() > 2; }));
  user.key("Escape");
  EXPECT_TRUE(user.sees([this] { return guide() == nullptr; }));
  EXPECT_EQ(user.dialog().title, "Preferences");
  EXPECT_TRUE(user.answers("Close"));
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_TRUE(isDark());
  menu("Company Info…");
  EXPECT_TRUE(user.answers("Help"));
  EXPECT_TRUE(seesGuide("first-company.html#company-info"));
  user.key("Escape");
  EXPECT_EQ(user.dialog().title, "Company Info");
  user.key("Escape");
  EXPECT_TRUE(user.seesNoDialog());
}

TEST_F(RealFirstDay, ARefusedEntryIsExplainedByF1) {
  newCompany();
  user.key("F9");
  EXPECT_EQ(user.dialog().text, "Please enter the Placed-in-service Date.");
  user.key("F1");
  EXPECT_TRUE(seesGuide("refusals.html#date"));
  user.key("Escape");
  EXPECT_EQ(user.dialog().text, "Please enter the Placed-in-service Date.");
  user.key("Return");
  EXPECT_TRUE(user.seesNoDialog());
}

}  // namespace
}  // namespace depcalc::testing
