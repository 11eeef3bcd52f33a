// Insight's Chart and What if by keys and clicks, in a real window.
#include <QFile>
#include <QImage>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

#include "desktop/workspace/chart_canvas.h"
#include "desktop/workspace/insight_panel.h"
#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct RealInsight : RealWindow {
  void SetUp() override {
    makeCompany(path(),
                "id,name,placed_in_service,life,convention,method,basis,salvage,fiscal_year_end\n"
                "TRK-014,Delivery truck,9/15/2023,5,Half Year,SYD,38450,4000,03-31\n"
                "ZLT-002,Lathe,7/1/2023,5,Full Year,SL,10000,1000,03-31\n");
    openCompany(path());
    clickCell(0, 1);
    if (!gui([this] { return panel() != nullptr && panel()->isVisible(); })) menu("Insight");
    ASSERT_TRUE(user.sees([this] { return panel() != nullptr && panel()->isVisible(); }));
  }

  desktop::InsightPanel* panel() { return window->findChild<desktop::InsightPanel*>(); }
  template <typename Part>
  Part* part(const char* name) {
    return window->findChild<Part*>(name);
  }
  /// By the page's tab and a click into the page.
  void goTo(const char* title, const char* into) {
    const QPoint place = gui([&] {
      const QTabBar& tabs = *part<QTabWidget>("InsightPages")->tabBar();
      int tab = 0;
      while (tab + 1 < tabs.count() && tabs.tabText(tab) != QLatin1String(title)) ++tab;
      return tabs.tabRect(tab).center();
    });
    user.clicks(gui([this] { return part<QTabWidget>("InsightPages")->tabBar(); }), place);
    ASSERT_EQ(current(), title);
    user.clicks(gui([&] { return part<QWidget>(into); }));
    ASSERT_TRUE(user.sees([&] { return part<QWidget>(into)->hasFocus(); }));
  }
  std::string current() {
    return gui([this] {
      auto* const pages = part<QTabWidget>("InsightPages");
      return pages->tabText(pages->currentIndex()).toStdString();
    });
  }
  std::string told() {
    return gui(
        [this] { return part<QWidget>("ChartCanvas")->accessibleDescription().toStdString(); });
  }
  std::string chosenRow() {
    return gui([this] {
      return part<QTableView>("WhatIfTable")
          ->currentIndex()
          .siblingAtColumn(0)
          .data()
          .toString()
          .section(u'\n', 0, 0)
          .toStdString();
    });
  }
  void choose(const char* caption) {
    user.key("ctrl+Home");
    for (int i = 0; i < 20 && chosenRow() != caption; ++i) user.key("Down");
    ASSERT_EQ(chosenRow(), caption);
  }
};

TEST_F(RealInsight, TheChartIsReadAndSavedByKeys) {
  goTo("Chart", "ChartCanvas");
  user.key("Home");
  EXPECT_THAT(told(), AllOf(StartsWith("FY2024. Straight Line: book value 35,005.00"),
                            HasSubstr("From FY2027 on, Straight Line takes more")));
  user.keys({"Right", "Right"});
  EXPECT_THAT(told(), StartsWith("FY2026."));
  user.key("End");
  EXPECT_THAT(told(), StartsWith("FY2029."));
  user.keys({"Tab", "Tab", "Tab", "space"});
  EXPECT_EQ(user.dialog().kind, "QFileDialog");
  user.choosesFile(path("truck"));
  EXPECT_TRUE(user.seesNoDialog());
  QFile svg(path("truck.svg"));
  ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
  EXPECT_THAT(svg.readAll().toStdString(), HasSubstr("FY2025, Straight Line: 6,890.00"));
  user.keys({"Tab", "space"});
  EXPECT_EQ(user.dialog().kind, "QFileDialog");
  user.choosesFile(path("truck.png"));
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_EQ(QImage(path("truck.png")).size(), QSize(1800, 800));
}

TEST_F(RealInsight, AFileThatCannotBeWrittenIsTold) {
  goTo("Chart", "ChartCanvas");
  user.keys({"Tab", "Tab", "Tab", "space"});
  EXPECT_EQ(user.dialog().kind, "QFileDialog");
  user.choosesFile(path("gone/truck.svg"));
  const SeenDialog box = user.dialog();
  EXPECT_EQ(box.kind, "QMessageBox");
  user.answers("OK");
  user.key("Escape");
  EXPECT_TRUE(user.seesNoDialog());
}

TEST_F(RealInsight, WhatIfChangesTheForm) {
  goTo("What if", "WhatIfTable");
  choose("7 years");
  user.key("Return");
  ASSERT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(text(&DepCalcCtl::DRecoveryText), "7");
  EXPECT_EQ(text(&DepCalcCtl::IDText), "TRK-014");
  EXPECT_EQ(idsIn(path()).size(), 2U) << "nothing is saved by that";
}

TEST_F(RealInsight, CancelOfTheQuestionKeepsAll) {
  goTo("What if", "WhatIfTable");
  choose("7 years");
  user.key("Return");
  ASSERT_EQ(shown(), "DepCalcCtl1");
  EXPECT_TRUE(user.seesNoDialog());
  // What is on the form is not saved, and Insight is about the other asset now.
  SavedAsset lathe;
  lathe.number = 2;
  lathe.placed_in_service = Date::strict(2023, 7, 1);
  lathe.fiscal_year_end = Date::strict(2023, 3, 31);
  lathe.basis = Currency::fromText("10000");
  lathe.life = 5;
  gui([&] { panel()->follow({desktop::InsightPlace::assets, lathe, {}, {}}); });
  user.clicks(gui([this] { return part<QWidget>("WhatIfTable"); }));
  choose("3 years");
  user.key("Return");
  EXPECT_EQ(user.dialog().kind, "QMessageBox");
  user.key("Escape");
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(text(&DepCalcCtl::IDText), "TRK-014");
  EXPECT_EQ(text(&DepCalcCtl::DRecoveryText), "7");
}

}  // namespace
}  // namespace depcalc::testing
