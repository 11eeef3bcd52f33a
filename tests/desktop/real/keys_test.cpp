// The register and the form by keys alone, the help beside them, and all assets calculated anew.
#include <QClipboard>

#include "DepCalc/company_assets.h"
#include "help/dep_calc_popup.h"
#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/// Two assets of calendar years in a company whose year begins in April.
struct TwoAssets : RealWindow {
  void SetUp() override {
    makeCompany(path(),
                "id,placed_in_service,life,method,basis,fiscal_year_end\n"
                "A1,1/15/2023,5,SL,1000,12-31\nA2,7/15/2023,5,SYD,1500,12-31\n");
    openCompany(path());
  }

  /// By the dialog, as far as its Save.
  void recalculateForTheCompany() {
    menu("Recalculate All Assets…");
    EXPECT_EQ(user.dialog().title, "Recalculate All Assets");
    user.key("alt+a");
    // The dialog grows by the amounts, and its window with it when the window manager says so.
    EXPECT_TRUE(user.sees([] { return QApplication::activeModalWidget()->height() > 300; }));
    user.settles();
    EXPECT_TRUE(user.answers("Save"));
  }
  Date fiscalYearEnd(int number) {
    return gui([&] {
      return CompanyAssets(window->company()->file(), Date::strict(2024, 6, 15))
          .asset(number)
          ->FYEnd();
    });
  }
};

using Keys = TwoAssets;

TEST_F(Keys, DisposeOfTheSelectedAssetAndTakeItBack) {
  const auto disposed = [this] {
    return gui([&] {
      return CompanyAssets(window->company()->file(), Date::strict(2024, 6, 15))
          .asset(2)
          ->AssetEndDate();
    });
  };
  clickCell(0, 2);
  menu("Dispose…");
  EXPECT_EQ(user.dialog().title, "Dispose of Asset");
  user.fills("6/30/2025");
  user.types("500");
  user.key("Return");
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_EQ(disposed(), Date::strict(2025, 6, 30));
  EXPECT_EQ(gui([this] { return backups->of(path()).size(); }), 1) << "of the company before";
  EXPECT_EQ(shown(), "DepCalcView1");
  menu("Undo Disposal");
  EXPECT_THAT(user.dialog().buttons, ElementsAre("Yes", "No"));
  EXPECT_TRUE(user.answers("Yes"));
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_TRUE(disposed().isNone());
}

TEST_F(Keys, EditSaveAndDeleteTheSelectedAsset) {
  clickCell(0, 2);
  user.key("Return");
  ASSERT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(text(&DepCalcCtl::IDText), "A2");
  user.fills("A2-new");
  user.key("ctrl+s");
  ASSERT_EQ(shown(), "DepCalcView1");
  EXPECT_THAT(idsIn(path()), ElementsAre("A1", "A2-new"));
  user.key("Delete");
  EXPECT_THAT(user.dialog().buttons, ElementsAre("Yes", "No"));
  EXPECT_TRUE(user.answers("Yes"));
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_THAT(idsIn(path()), ElementsAre("A1"));
}

TEST_F(Keys, CopyTheSelectedAssetAndByItsMenuAllOfThem) {
  const auto copied = [] {
    return gui([] { return QApplication::clipboard()->text().toStdString(); });
  };
  clickCell(0, 2);
  user.key("ctrl+c");
  EXPECT_THAT(copied(), StartsWith("Asset ID\tA2\nName\t\n"));
  user.key("Menu");
  ASSERT_TRUE(user.sees([] { return QApplication::activePopupWidget() != nullptr; }));
  user.key("w");
  EXPECT_TRUE(user.sees([] { return QApplication::activePopupWidget() == nullptr; }));
  user.settles();
  EXPECT_THAT(copied(), StartsWith("Asset ID\tA1\tA2\nName\t\t\n"));
  EXPECT_THAT(copied(), HasSubstr("\nBasis\t1000.00\t1500.00\n"));
}

TEST_F(Keys, ReachTheButtonsBehindTheLastField) {
  user.key("ctrl+shift+n");
  ASSERT_EQ(shown(), "DepCalcCtl1");
  enterAsset({"A3", "Saw", "S-1", "Shop", "1/15/2024", "", "5", "", "900", "0", "100"});
  user.key("space");
  ASSERT_EQ(shown(), "DepCalcDisplayCtl1") << "Calculate comes first";
}

TEST_F(Keys, BringHelpThatGoesWithItsScreen) {
  user.key("ctrl+shift+n");
  user.key("F1");
  auto& popup = screen<DepCalcPopup>("DepCalcPopup1");
  EXPECT_TRUE(gui([&] { return popup.isShown(); }));
  EXPECT_GE(gui([&] { return popup.left(); }), gui([this] { return form().BasisText.left(); }));
  user.key("alt+v");
  EXPECT_TRUE(user.sees([this] { return assets().isShown(); }));
  EXPECT_FALSE(gui([&] { return popup.isShown(); }));
}

using Recalculating = TwoAssets;

TEST_F(Recalculating, SavesAllAssetsForTheCompanysYear) {
  recalculateForTheCompany();
  EXPECT_TRUE(user.seesNoDialog());
  for (const int asset : {1, 2}) EXPECT_EQ(fiscalYearEnd(asset).month(), 3) << asset;
  EXPECT_EQ(shown(), "DepCalcView1");
}

}  // namespace
}  // namespace depcalc::testing
