// Insight's page "Why this amount?": what it says, and that it follows the calculator.
#include <QTextBrowser>

#include "desktop/widgets/text_block.h"
#include "desktop/workspace/insight_panel.h"
#include "desktop/workspace/why_page.h"
#include "desktop/workspace/why_this_amount.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using desktop::InsightPlace;
using desktop::InsightSubject;
using desktop::whyThisAmount;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

SavedAsset truck(const char* method) {
  SavedAsset asset;
  asset.number = 1;
  asset.placed_in_service = Date::strict(2023, 9, 15);
  asset.fiscal_year_end = Date::strict(2024, 3, 31);
  asset.basis = Currency::fromText("38450");
  asset.salvage = Currency::fromText("4000");
  asset.life = 5;
  asset.convention = "1";
  asset.capacity = "1000";
  asset.method = method;
  for (const char* amount : {"3445", "6890", "6890", "6890", "6890", "3445"}) {
    asset.amounts.push_back(Currency::fromText(amount));
  }
  return asset;
}

std::string text(const InsightSubject& subject) { return plainText(whyThisAmount(subject)); }

TEST(WhyThisAmount, ExplainsTheAmountInViewStepByStep) {
  const auto why = whyThisAmount({InsightPlace::comparison, truck("SL"), "SYD", 2025});
  EXPECT_EQ(why.heading, "Sum of the Years' Digits, FY2025: 10,335.00");
  EXPECT_EQ(why.warning, "");
  EXPECT_EQ(why.rows.front().words, "Basis less salvage value");
  EXPECT_EQ(why.rows.front().figures, "38,450.00 − 4,000.00 = 34,450.00");
  ASSERT_GE(why.rows.size(), 2);
  const auto& amount = why.rows[why.rows.size() - 2];
  EXPECT_EQ(amount.words, "Sum, rounded to cents");
  EXPECT_EQ(amount.figures, "5,741.6667 + 4,593.3333 = 10,335.00");
  EXPECT_TRUE(amount.total);
  EXPECT_EQ(why.rows.back().words, "Taken so far");
  EXPECT_EQ(why.rows.back().figures, "16,076.67 of 34,450.00");
}

TEST(WhyThisAmount, SaysWhereAnotherAmountWasSaved) {
  SavedAsset asset = truck("SL");
  asset.amounts[1] = Currency::fromText("7000");
  for (const InsightPlace place : {InsightPlace::assetRegister, InsightPlace::report}) {
    EXPECT_EQ(whyThisAmount({place, asset, "SL", 2025}).warning,
              "Saved as 7,000.00, which is not what the calculation gives. Explained is the "
              "calculation.");
    EXPECT_EQ(whyThisAmount({place, asset, "SL", 2026}).warning, "");
    EXPECT_THAT(text({place, asset, "SL", {}}), HasSubstr("FY2025\t6,890.00 (saved as 7,000.00)"));
  }
  EXPECT_EQ(whyThisAmount({InsightPlace::comparison, asset, "SL", 2025}).warning, "")
      << "nothing is saved there yet";
}

TEST(WhyThisAmount, CountsTheDisposalWhereReportsDo) {
  SavedAsset asset = truck("SL");
  asset.disposed = Date::strict(2025, 1, 10);
  EXPECT_THAT(text({InsightPlace::report, asset, "SL", 2025}),
              HasSubstr("half of the fiscal year"));
  EXPECT_THAT(text({InsightPlace::report, asset, "SL", 2026}), HasSubstr("Disposed of 01/10/2025"));
  EXPECT_THAT(text({InsightPlace::assetRegister, asset, "SL", 2026}), Not(HasSubstr("isposed")));
}

TEST(WhyThisAmount, OfNoSingleAmountListsTheYears) {
  const auto why = whyThisAmount({InsightPlace::assets, truck("SL"), "SL", {}});
  EXPECT_EQ(why.heading, "Straight Line");
  ASSERT_EQ(why.rows.size(), 7);
  EXPECT_EQ(why.rows.front().words, "FY2024");
  EXPECT_EQ(why.rows.front().figures, "3,445.00");
  EXPECT_EQ(why.rows.back().figures, "34,450.00 of 34,450.00");
  EXPECT_TRUE(why.rows.back().total);
}

TEST(WhyThisAmount, OfUnitsIsTheRateOnTheCalculatorsPages) {
  SavedAsset asset = truck("UOP");
  asset.amounts = {Currency::fromText("34.45")};
  asset.units = {{2025, 400}};
  EXPECT_EQ(whyThisAmount({InsightPlace::assetRegister, asset, "UOP", 2025}).rows.front().words,
            "Rate per unit");
  EXPECT_EQ(whyThisAmount({InsightPlace::report, asset, "uop", 2025}).heading,
            "Units of Production, FY2025: 13,780.00");
}

TEST(WhyThisAmount, SaysTheWayOnWhereThereIsNoAmount) {
  const auto note = [](const InsightSubject& subject) { return whyThisAmount(subject).note; };
  EXPECT_THAT(note({}), HasSubstr("Select an asset"));
  EXPECT_THAT(note({InsightPlace::entry, {}, "", {}}), HasSubstr("Enter when"));
  EXPECT_THAT(note({InsightPlace::entry, truck(""), "", {}}), HasSubstr("No method is chosen"));
  SavedAsset asset = truck("SL");
  asset.life = 0;
  EXPECT_THAT(note({InsightPlace::entry, asset, "SL", 2024}), HasSubstr("has no amounts"));
}

TEST(WhyPage, ShowsTheRowsLetterForLetter) {
  desktop::WhyPage page;
  auto* const browser = page.findChild<QTextBrowser*>("WhyText");
  ASSERT_NE(browser, nullptr);
  EXPECT_FALSE(browser->accessibleName().isEmpty());
  page.follow({InsightPlace::comparison, truck("SL"), "DDB", 2025});
  const QString shown = browser->toPlainText().replace(QChar(QChar::Nbsp), u' ');
  for (const desktop::WhyRow& row :
       whyThisAmount({InsightPlace::comparison, truck("SL"), "DDB", 2025}).rows) {
    EXPECT_TRUE(shown.contains(desktop::qtText(row.words))) << row.words;
    EXPECT_TRUE(shown.contains(desktop::qtText(row.figures))) << row.figures;
  }
  browser->selectAll();
  EXPECT_TRUE(browser->textCursor().hasSelection());
  EXPECT_TRUE(browser->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
}

struct WhyWindow : WindowTest {
  WhyWindow() {
    newCompany();
    if (!action("Insight").isChecked()) action("Insight").trigger();
    settle();
  }
  std::string heading() {
    settle();
    const auto* const browser = window.findChild<QTextBrowser*>("WhyText");
    return browser == nullptr ? "" : browser->accessibleDescription().toStdString();
  }
};

TEST_F(WhyWindow, FollowsTheArrowKeysOverTheComparison) {
  compareTruck();
  while (focused() != "DisplayTable") key(Qt::Key_Tab);
  const struct {
    int key;
    const char* heading;
  } cases[] = {{Qt::Key_Down, "Straight Line, FY2024: 3,445.00"},
               {Qt::Key_Down, "Straight Line, FY2025: 6,890.00"},
               {Qt::Key_Right, "Sum of the Years' Digits, FY2025: 10,335.00"},
               {Qt::Key_Right, "Double Declining Balance, FY2025: 12,304.00"},
               {Qt::Key_Up, "Double Declining Balance, FY2024: 7,690.00"}};
  for (const auto& c : cases) {
    key(c.key);
    EXPECT_EQ(heading(), c.heading);
  }
}

TEST_F(WhyWindow, FollowsTheRegister) {
  compareTruck();
  key(Qt::Key_S, Qt::AltModifier);
  ASSERT_EQ(shown(), "DepCalcView1");
  clickCell(13, 1);
  EXPECT_EQ(heading(), "Straight Line, FY2025: 6,890.00");
  key(Qt::Key_Down);
  EXPECT_EQ(heading(), "Straight Line, FY2026: 6,890.00");
}

}  // namespace
}  // namespace depcalc::testing
