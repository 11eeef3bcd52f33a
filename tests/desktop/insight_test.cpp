// What Insight is about, its panel, and what stands around the page.
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

#include "desktop/workspace/first_docks.h"
#include "desktop/workspace/insight_following.h"
#include "desktop/workspace/insight_panel.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using desktop::InsightFollowing;
using desktop::InsightPlace;
using desktop::InsightSubject;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(FirstDocks, LeaveTheFormItsRoom) {
  constexpr int page = 900;
  const struct {
    int window;
    bool assets;
    bool insight;
  } cases[] = {{784, false, false}, {1189, false, false}, {1190, true, false},
               {1280, true, false}, {1420, true, true},   {2560, true, true}};
  for (const auto& [window, assets, insight] : cases) {
    const desktop::FirstDocks docks = desktop::firstDocks(window, page, 290, 380);
    EXPECT_EQ(docks.assets, assets) << window;
    EXPECT_EQ(docks.insight, insight) << window;
  }
}

SavedAsset savedAsset(std::int32_t number, const char* id, const char* method) {
  SavedAsset asset;
  asset.number = number;
  asset.id = id;
  asset.method = method;
  return asset;
}

struct Following : WindowTest {
  Following() { newCompany(); }

  void follow() { following.setCalculator(&calculator().container()); }
  void look(const Grid& grid, int row, int column) { following.cellPointed(grid, row, column); }

  std::map<std::int32_t, SavedAsset> saved;
  InsightFollowing following{[this](std::int32_t number) {
    const auto found = saved.find(number);
    return found == saved.end() ? std::nullopt : std::optional(found->second);
  }};
};

TEST_F(Following, NothingIsInViewWithoutACalculator) {
  EXPECT_TRUE(following.subject().isNothing());
}

TEST_F(Following, TheFormsAssetIsInViewAsItIsTyped) {
  follow();
  enterTruck();
  const InsightSubject subject = following.subject();
  EXPECT_EQ(subject.place, InsightPlace::entry);
  EXPECT_EQ(subject.asset.number, 0) << "never saved";
  EXPECT_EQ(desktop::nameOf(subject), "TRK-014 Delivery truck");
  EXPECT_EQ(subject.asset.basis, Currency::fromText("38450"));
  EXPECT_EQ(subject.asset.placed_in_service, Date::strict(2023, 9, 15));
}

TEST_F(Following, TheComparisonsCellIsTheOnePointedAt) {
  follow();
  compareTruck();
  InsightSubject subject = following.subject();
  EXPECT_EQ(subject.place, InsightPlace::comparison);
  EXPECT_EQ(subject.method, "SL") << "the chosen one";
  EXPECT_EQ(subject.fiscal_year, std::nullopt);
  const Grid& table = comparison().DisplayTable;
  const struct {
    int row;
    int column;
    const char* method;
    std::optional<int> year;
  } cases[] = {{1, 1, "SL", 2024}, {2, 2, "SYD", 2025}, {6, 3, "DDB", 2029},
               {7, 3, "DDB", {}},  {0, 2, "SYD", {}},   {3, 0, "SL", 2026}};
  for (const auto& [row, column, method, year] : cases) {
    look(table, row, column);
    subject = following.subject();
    EXPECT_EQ(subject.method, method) << row << ", " << column;
    EXPECT_EQ(subject.fiscal_year, year) << row << ", " << column;
  }
  look(comparison().UoPTable, 0, 1);
  EXPECT_EQ(following.subject().method, "UOP");
  following.turned();
  EXPECT_EQ(following.subject().method, "SL");
}

TEST_F(Following, TheRegistersColumnIsAnAssetAndItsRowsAreYears) {
  saveTruck();
  saved[1] = savedAsset(1, "TRK-014", "SL");
  follow();
  clickCell(13, 1);
  InsightSubject subject = following.subject();
  EXPECT_EQ(subject.place, InsightPlace::assetRegister);
  EXPECT_EQ(subject.asset, saved[1]);
  EXPECT_EQ(subject.method, "SL");
  EXPECT_EQ(subject.fiscal_year, 2025);
  clickCell(2, 1);
  EXPECT_EQ(following.subject().fiscal_year, std::nullopt);
  saved.clear();
  EXPECT_TRUE(following.subject().isNothing()) << "the asset is gone";
}

TEST_F(Following, WhatIsChosenElsewhereGoesBeforeUntilTheCalculatorIsLookedAtAgain) {
  compareTruck();
  saved[7] = savedAsset(7, "SAW", "DDB");
  follow();
  following.chooseInList(7);
  EXPECT_EQ(following.subject().place, InsightPlace::assets);
  EXPECT_EQ(following.subject().asset.id, "SAW");
  following.chooseInReport(7, 2030);
  EXPECT_EQ(following.subject().place, InsightPlace::report);
  EXPECT_EQ(following.subject().fiscal_year, 2030);
  look(comparison().DisplayTable, 1, 1);
  EXPECT_EQ(following.subject().place, InsightPlace::comparison);
  following.chooseInList(8);
  EXPECT_TRUE(following.subject().isNothing()) << "there is none";
}

/// Tells what it was shown.
class Told : public desktop::InsightPage {
 public:
  explicit Told(QString title) : title_(std::move(title)) { setFocusPolicy(Qt::TabFocus); }
  [[nodiscard]] QString title() const override { return title_; }
  void follow(const InsightSubject& subject) override { told.push_back(subject.asset.id); }
  std::vector<std::string> told;

 private:
  QString title_;
};

InsightSubject subjectOf(const char* id) {
  return {InsightPlace::assets, savedAsset(1, id, ""), {}, {}};
}

TEST(InsightPanel, OnlyThePageInFrontHearsAndEachSubjectOnce) {
  desktop::InsightPanel panel;
  EXPECT_FALSE(panel.hasPages());
  auto* const first = new Told("First");
  auto* const second = new Told("Second");
  panel.addPage(first);
  panel.addPage(second);
  first->told.clear();
  QStringList titles;
  QObject::connect(&panel, &desktop::InsightPanel::titled,
                   [&](const QString& title) { titles << title; });
  panel.follow(subjectOf("A"));
  panel.follow(subjectOf("A"));
  panel.follow(subjectOf("B"));
  EXPECT_THAT(first->told, ElementsAre("A", "B"));
  EXPECT_THAT(second->told, IsEmpty());
  panel.choose("Second");
  EXPECT_THAT(second->told, ElementsAre("B"));
  panel.follow({});
  EXPECT_EQ(titles, QStringList({"Insight: A", "Insight: B", "Insight"}));
}

struct Toolbar : WindowTest {
  QToolBar& bar() { return *window.findChild<QToolBar*>("Toolbar"); }
};

TEST_F(Toolbar, PressesWhatTheMenusPress) {
  newCompany();
  saveTruck();
  clickCell(0, 1);
  auto* const edit = dynamic_cast<QToolButton*>(bar().widgetForAction(&action("Edit")));
  ASSERT_NE(edit, nullptr);
  QTest::mouseClick(edit, Qt::LeftButton);
  settle();
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_FALSE(edit->isEnabled()) << "the form has no such button";
}

TEST_F(Toolbar, TakesNoKeysAndSoAsksNothing) {
  newCompany();
  goTo("StartDateText");
  type("13/45/2020");
  for (auto* button : bar().findChildren<QToolButton*>()) {
    EXPECT_EQ(button->focusPolicy(), Qt::NoFocus) << button->text().toStdString();
    EXPECT_FALSE(button->accessibleName().isEmpty() && button->text().isEmpty());
  }
  EXPECT_THAT(boxes.take(), IsEmpty());
  EXPECT_EQ(focused(), "StartDateText");
}

TEST_F(Toolbar, StaysHiddenForWhoHidIt) {
  EXPECT_EQ(window.findChild<QToolBar*>("Toolbar"), nullptr) << "no company has anything to press";
  newCompany();
  EXPECT_TRUE(bar().isVisible());
  action("Toolbar").trigger();
  EXPECT_FALSE(bar().isVisible());
  desktop::MainWindow again(
      {companies, settings, backups, [] { return Date::strict(2024, 6, 15); }, "/start"});
  window.close();
  again.show();
  ASSERT_TRUE(again.openCompany(path()));
  EXPECT_EQ(again.findChild<QToolBar*>("Toolbar"), nullptr);
}

}  // namespace
}  // namespace depcalc::testing
