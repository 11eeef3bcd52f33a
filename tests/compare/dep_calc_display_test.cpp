#include "compare/dep_calc_display_ctl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "common/report_error.h"
#include "controls/user.h"
#include "tests/support/scripted_site.h"
#include "tests/support/trace_lines.h"

namespace depcalc {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Container : UserControl, DepCalcDisplayCtlEvents {
  explicit Container(Stage& stage) : UserControl(stage, "Container") {}

  void GetCalcDep(CalculateDepPtr& myCalcDep) override {
    ++fetched;
    myCalcDep = record;
  }
  void ButtonClick(const std::string& myButton) override { said.push_back(myButton); }
  void ResizedDisplay() override { ++resized; }
  void HelpClick(const std::string& myTopic) override { said.push_back("help " + myTopic); }

  std::vector<std::string> take() { return std::exchange(said, {}); }

  CalculateDepPtr record;
  int fetched = 0;
  int resized = 0;
  std::vector<std::string> said;
  DepCalcDisplayCtl screen{*this, "DepCalcDisplayCtl1", *this};
};

/// Basis 10,000, salvage 1,000, five years, from 1 July 2023, years ending 31 December.
CalculateDepPtr sample(std::string_view convention = "1") {
  auto record = std::make_shared<CalculateDep>();
  record->AssetID("LAT-002");
  record->AssetName("Lathe");
  record->AssetBasis(Currency::fromText("10000"));
  record->AssetSalvage(Currency::fromText("1000"));
  record->AssetStartDate(Date::strict(2023, 7, 1));
  record->FYEnd(Date::strict(2023, 12, 31));
  record->DepRecovery(5);
  record->DepConvention(convention);
  return record;
}

struct Comparison : ::testing::Test {
  Comparison() { container.show(); }

  CalculateDep& record() { return *container.record; }
  void open(CalculateDepPtr shown) {
    container.record = std::move(shown);
    screen.hide();
    screen.show();
    stage.pumpPaint();
  }
  std::vector<std::string> column(int number) {
    std::vector<std::string> cells;
    cells.reserve(static_cast<std::size_t>(screen.DisplayTable.rows()));
    for (int row = 0; row < screen.DisplayTable.rows(); ++row) {
      cells.emplace_back(screen.DisplayTable.text(row, number));
    }
    return cells;
  }
  std::vector<std::string> amounts(int count) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      texts.push_back(record().DepItem(static_cast<std::int16_t>(i)).toText());
    }
    return texts;
  }
  std::vector<bool> chosen() {
    return {screen.SLOption.value(), screen.SYDOption.value(), screen.DDBOption.value(),
            screen.UoPOption.value()};
  }

  testing::ScriptedSite site;
  testing::TraceLines trace;
  Stage stage{site, &trace};
  User user{stage};
  Container container{stage};
  DepCalcDisplayCtl& screen = container.screen;
  std::vector<std::string> reports;
  ErrorReportHook hook{[this](const ErrorReport& report) { reports.push_back(report.text()); }};
};

// --- Filling ----------------------------------------------------------------------------------

TEST_F(Comparison, ShowsTheSchedulesSideBySideWithTheirTotals) {
  open(sample());
  EXPECT_EQ(screen.AID.text(), "LAT-002");
  EXPECT_EQ(screen.AName.text(), "Lathe");
  EXPECT_THAT(column(0),
              ElementsAre("", "FY2023", "FY2024", "FY2025", "FY2026", "FY2027", "FY2028", "TOTAL"));
  EXPECT_THAT(column(1), ElementsAre("Straight Line", "900.00", "1,800.00", "1,800.00", "1,800.00",
                                     "1,800.00", "900.00", "9,000.00"));
  EXPECT_THAT(column(2), ElementsAre("Sum of the Years' Digits", "1,500.00", "2,700.00", "2,100.00",
                                     "1,500.00", "900.00", "300.00", "9,000.00"));
  EXPECT_THAT(column(3), ElementsAre("Double Declining Balance", "2,000.00", "3,200.00", "1,920.00",
                                     "1,152.00", "691.20", "36.80", "9,000.00"));
  EXPECT_THAT(reports, IsEmpty());
}

TEST_F(Comparison, HasAColumnForEachScheduleBeforeThereIsAnAsset) {
  EXPECT_EQ(screen.DisplayTable.columns(), 4);
  EXPECT_EQ(screen.DisplayTable.rows(), 2);
}

TEST_F(Comparison, ShowsAsManyYearsAsTheConventionNeeds) {
  open(sample("0"));
  EXPECT_THAT(column(0),
              ElementsAre("", "FY2023", "FY2024", "FY2025", "FY2026", "FY2027", "TOTAL"));
  EXPECT_THAT(column(1), ElementsAre("Straight Line", "1,800.00", "1,800.00", "1,800.00",
                                     "1,800.00", "1,800.00", "9,000.00"));
  for (const char* convention : {"1", "2", "3", "4"}) {
    open(sample(convention));
    EXPECT_EQ(screen.DisplayTable.rows(), 8) << convention;
    EXPECT_EQ(screen.DisplayTable.text(7, 0), "TOTAL");
    EXPECT_EQ(screen.DisplayTable.text(7, 1), "9,000.00");
    EXPECT_EQ(screen.DisplayTable.text(7, 2), "9,000.00");
  }
}

TEST_F(Comparison, DoubleDecliningTotalMayStayBelowTheOthers) {
  auto asset = sample("0");
  asset->AssetSalvage(Currency());
  open(asset);
  EXPECT_EQ(screen.DisplayTable.text(6, 1), "10,000.00");
  EXPECT_EQ(screen.DisplayTable.text(6, 3), "9,222.40");
}

TEST_F(Comparison, NamesTheFirstFiscalYearByItsEnd) {
  const struct {
    Date start;
    Date year_end;
    std::string_view first;
  } cases[] = {
      {Date::strict(2023, 12, 31), Date::strict(2024, 12, 31), "FY2023"},
      {Date::strict(2023, 6, 30), Date::strict(2020, 6, 30), "FY2023"},
      {Date::strict(2023, 7, 1), Date::strict(2020, 6, 30), "FY2024"},
      {Date::strict(2023, 1, 1), Date::strict(2020, 1, 1), "FY2023"},
      {Date::strict(2024, 2, 29), Date::strict(2024, 2, 29), "FY2024"},
      {Date::strict(2024, 3, 1), Date::strict(2024, 2, 29), "FY2025"},
  };
  for (const auto& c : cases) {
    auto asset = sample();
    asset->AssetStartDate(c.start);
    asset->FYEnd(c.year_end);
    open(asset);
    EXPECT_EQ(screen.DisplayTable.text(1, 0), c.first) << c.start.toText();
  }
}

TEST_F(Comparison, ShowsTheRatePerUnitAndItsCaptionOnlyWithACapacity) {
  auto asset = sample();
  asset->AssetProdCap("150000");
  open(asset);
  EXPECT_EQ(screen.UoPTable.text(0, 0), "Unit of Production Rate");
  EXPECT_EQ(screen.UoPTable.text(0, 1), "0.0600");
  open(sample());
  EXPECT_EQ(screen.UoPTable.text(0, 0), "");
  EXPECT_EQ(screen.UoPTable.text(0, 1), "0.0000");
}

TEST_F(Comparison, RowsOfALongerScheduleLeaveNothingBehind) {
  auto longer = sample("1");
  longer->DepRecovery(9);
  open(longer);
  open(sample("0"));
  open(sample("1"));
  for (int row = 1; row < 7; ++row) {
    for (int number = 1; number < 4; ++number) {
      EXPECT_FALSE(screen.DisplayTable.bold(row, number));
      EXPECT_EQ(screen.DisplayTable.alignment(row, number), CellAlignment::rightCenter);
    }
    EXPECT_TRUE(screen.DisplayTable.bold(row, 0));
  }
  for (int number = 1; number < 4; ++number) {
    EXPECT_TRUE(screen.DisplayTable.bold(0, number));
    EXPECT_EQ(screen.DisplayTable.alignment(0, number), CellAlignment::centerCenter);
    EXPECT_TRUE(screen.DisplayTable.bold(7, number));
  }
}

TEST_F(Comparison, SaysOfEachCellWhatItIs) {
  open(sample("1"));
  const Grid& table = screen.DisplayTable;
  const int total_row = table.rows() - 1;
  for (int row = 0; row <= total_row; ++row) {
    const CellKind amount = row == total_row ? CellKind::total : CellKind::amount;
    EXPECT_EQ(table.kind(row, 0), row == 0 ? CellKind::heading : CellKind::caption) << row;
    for (int number = 1; number < 4; ++number) {
      EXPECT_EQ(table.kind(row, number), row == 0 ? CellKind::heading : amount) << row;
    }
  }
  EXPECT_EQ(screen.UoPTable.kind(0, 0), CellKind::caption);
  EXPECT_EQ(screen.UoPTable.kind(0, 1), CellKind::amount);
}

TEST_F(Comparison, IsFilledAsSoonAsItIsShown) {
  container.record = sample();
  screen.show();
  EXPECT_EQ(screen.AID.text(), "LAT-002");
  EXPECT_EQ(record().DepMethod(), "SL");
  stage.pumpPaint();
  EXPECT_EQ(container.fetched, 1) << "the paint that follows finds it filled";
}

TEST_F(Comparison, IsFilledOncePerShowing) {
  open(sample());
  stage.expose();
  stage.pumpPaint();
  EXPECT_EQ(container.fetched, 1);
  open(sample());
  EXPECT_EQ(container.fetched, 2);
}

TEST_F(Comparison, StopsWithoutARecord) {
  open(sample());
  open(nullptr);
  EXPECT_EQ(screen.AID.text(), "LAT-002");
  EXPECT_THAT(reports, IsEmpty());
}

// --- Choosing ---------------------------------------------------------------------------------

TEST_F(Comparison, OpensWithTheRecordsMethod) {
  const std::tuple<std::string, std::vector<bool>, int> cases[] = {
      {"SL", {true, false, false, false}, 1},  {"SYD", {false, true, false, false}, 2},
      {"DDB", {false, false, true, false}, 3}, {"UOP", {false, false, false, true}, 0},
      {"", {true, false, false, false}, 1},    {"uop", {true, false, false, false}, 1}};
  for (const auto& [method, options, marked] : cases) {
    auto asset = sample();
    asset->DepMethod(method);
    open(asset);
    EXPECT_EQ(chosen(), options) << method;
    EXPECT_EQ(screen.DisplayTable.column(), marked) << method;
  }
}

TEST_F(Comparison, NewRecordHasItsStraightLineWrittenAtOnce) {
  open(sample());
  EXPECT_EQ(record().DepMethod(), "SL");
  EXPECT_THAT(amounts(7), ElementsAre("900", "1800", "1800", "1800", "1800", "900", "0"));
  EXPECT_FALSE(record().RecChanged());
}

TEST_F(Comparison, ClickingAnOptionWritesItsMethodAndAmounts) {
  auto asset = sample();
  asset->AssetProdCap("150000");
  open(asset);
  const std::vector<std::string> declining{"2000", "3200", "1920", "1152", "691.2", "36.8"};
  const std::tuple<OptionButton*, std::string, std::vector<std::string>, int> cases[] = {
      {&screen.SYDOption, "SYD", {"1500", "2700", "2100", "1500", "900", "300"}, 2},
      {&screen.DDBOption, "DDB", declining, 3},
      {&screen.SLOption, "SL", {"900", "1800", "1800", "1800", "1800", "900"}, 1},
      // Only the rate is written: the other amounts stay what they were.
      {&screen.UoPOption, "UOP", {"0.06", "1800", "1800", "1800", "1800", "900"}, 0}};
  for (const auto& [option, method, written, marked] : cases) {
    user.click(*option);
    EXPECT_EQ(record().DepMethod(), method);
    EXPECT_EQ(amounts(6), written);
    EXPECT_EQ(std::ranges::count(chosen(), true), 1);
    EXPECT_TRUE(option->value());
    EXPECT_EQ(screen.DisplayTable.column(), marked);
  }
  EXPECT_THAT(container.take(), IsEmpty());
}

TEST_F(Comparison, UnitsOfProductionOnEntryKeepsTheDecliningAmountsBehindTheRate) {
  auto asset = sample();
  asset->AssetProdCap("150000");
  asset->DepMethod("UOP");
  open(asset);
  EXPECT_THAT(amounts(6), ElementsAre("0.06", "3200", "1920", "1152", "691.2", "36.8"));
}

TEST_F(Comparison, FullYearWritesOneAmountLess) {
  auto asset = sample("0");
  open(asset);
  record().DepItem(5, Currency::fromText("7"));
  user.click(screen.SYDOption);
  EXPECT_THAT(amounts(6), ElementsAre("3000", "2400", "1800", "1200", "600", "7"));
}

TEST_F(Comparison, OptionsAreReadInAFixedOrderWhateverElseIsSet) {
  open(sample());
  const std::pair<OptionButton*, std::string> order[] = {{&screen.UoPOption, "UOP"},
                                                         {&screen.SYDOption, "SYD"},
                                                         {&screen.SLOption, "SL"},
                                                         {&screen.DDBOption, "DDB"}};
  for (OptionButton* option :
       {&screen.SLOption, &screen.SYDOption, &screen.DDBOption, &screen.UoPOption}) {
    option->setValue(false);
  }
  record().DepMethod("none");
  user.click(screen.SaveButton.normal);
  EXPECT_EQ(record().DepMethod(), "none") << "without a choice nothing is written";
  for (const auto& [option, method] : order) {
    option->setValue(true);
    user.click(screen.SaveButton.normal);
    EXPECT_EQ(record().DepMethod(), method);
  }
}

TEST_F(Comparison, LookingAtACellChoosesNothing) {
  open(sample());
  user.clickCell(screen.DisplayTable, 2, 3);
  EXPECT_EQ(screen.DisplayTable.column(), 1);
  EXPECT_EQ(record().DepMethod(), "SL");
}

// --- Leaving ----------------------------------------------------------------------------------

CalculateDepPtr withPriorChoice() {
  auto asset = sample();
  asset->DepMethod("SYD");
  for (std::int16_t i = 0; i <= 5; ++i)
    asset->DepItem(i, Currency::fromTicks((i + 1) * std::int64_t{10'000}));
  return asset;
}

TEST_F(Comparison, SaveWritesTheChoiceAgainAndSaves) {
  open(withPriorChoice());
  user.click(screen.DDBOption);
  record().DepMethod("SL");
  user.click(screen.SaveButton.normal);
  EXPECT_THAT(container.take(), ElementsAre("Save"));
  EXPECT_EQ(record().DepMethod(), "DDB");
}

TEST_F(Comparison, ClosePutsThePriorMethodAndAmountsBack) {
  open(withPriorChoice());
  EXPECT_THAT(amounts(2), ElementsAre("1500", "2700"));
  user.click(screen.DDBOption);
  user.click(screen.CloseButton.normal);
  EXPECT_THAT(container.take(), ElementsAre("Close"));
  EXPECT_EQ(record().DepMethod(), "SYD");
  EXPECT_THAT(amounts(6), ElementsAre("1", "2", "3", "4", "5", "6"));
}

TEST_F(Comparison, ClosePutsBackTheLastYearOfALifeOfTwoYearsAndAHalf) {
  const auto asset = withPriorChoice();
  asset->DepConvention("0");
  asset->DepRecovery(2.5);
  open(asset);
  user.click(screen.CloseButton.normal);
  EXPECT_THAT(amounts(3), ElementsAre("1", "2", "3")) << "one year more than the table has";
  EXPECT_THAT(reports, IsEmpty());
}

TEST_F(Comparison, CloseLeavesANewRecordWithoutAMethod) {
  open(sample());
  user.click(screen.CloseButton.normal);
  EXPECT_EQ(record().DepMethod(), "");
  EXPECT_THAT(amounts(6), ElementsAre("0", "0", "0", "0", "0", "0"));
}

const MessageBox save_question{
    "You have not saved your changes to this asset. Would you like to save them now?",
    BoxButtons::yesNoCancel, "Save Changes"};

TEST_F(Comparison, ViewAllAlwaysAsks) {
  const std::tuple<BoxAnswer, std::vector<std::string>, std::string, std::string> cases[] = {
      {BoxAnswer::yes, {"Save"}, "DDB", "2000"},
      {BoxAnswer::no, {"ViewAll"}, "SYD", "1"},
      {BoxAnswer::cancel, {}, "DDB", "2000"}};
  for (const auto& [answer, said, method, first] : cases) {
    open(withPriorChoice());
    user.click(screen.DDBOption);
    site.answers = {answer};
    user.click(screen.ViewAllLabel);
    EXPECT_THAT(site.takeBoxes(), ElementsAre(save_question));
    EXPECT_EQ(container.take(), said);
    EXPECT_EQ(record().DepMethod(), method);
    EXPECT_THAT(amounts(1), ElementsAre(first));
  }
}

TEST_F(Comparison, IsFilledAgainAfterAButtonHasActed) {
  for (int button = 0; button < 3; ++button) {
    open(withPriorChoice());
    const int fetched = container.fetched;
    if (button == 0) user.click(screen.SaveButton.normal);
    if (button == 1) user.click(screen.CloseButton.normal);
    if (button == 2) {
      site.answers = {BoxAnswer::cancel};
      user.click(screen.ViewAllLabel);
    }
    stage.expose();
    stage.pumpPaint();
    EXPECT_EQ(container.fetched, fetched + 1) << button;
  }
}

TEST_F(Comparison, CancelledViewAllTakesTheChoiceForThePriorOneAtTheNextPaint) {
  open(withPriorChoice());
  user.click(screen.DDBOption);
  site.answers = {BoxAnswer::cancel};
  user.click(screen.ViewAllLabel);
  stage.expose();
  stage.pumpPaint();
  user.click(screen.SLOption);
  user.click(screen.CloseButton.normal);
  EXPECT_EQ(record().DepMethod(), "DDB");
}

TEST_F(Comparison, ButtonsActOnTheReleaseOverThem) {
  open(sample());
  for (PicturePair* button : {&screen.SaveButton, &screen.CloseButton}) {
    user.mouseDown(button->normal);
    EXPECT_TRUE(button->pressed.visible());
    EXPECT_THAT(container.take(), IsEmpty());
    user.mouseUp(nullptr);
    EXPECT_FALSE(button->pressed.visible());
    EXPECT_THAT(container.take(), IsEmpty()) << "released elsewhere";
    user.mouseDown(button->normal);
    user.mouseUp(&button->pressed);
    EXPECT_FALSE(button->pressed.visible());
    EXPECT_EQ(container.take().size(), 1U);
  }
}

// --- Errors -----------------------------------------------------------------------------------

TEST_F(Comparison, FillStopsWhereTheYearLabelsDateDoesNotExist) {
  open(sample());
  auto asset = sample();
  asset->AssetID("LEAP");
  asset->FYEnd(Date::strict(2024, 2, 29));
  asset->DepRecovery(3);
  asset->DepMethod("SYD");
  asset->DepItem(0, Currency::fromText("5"));
  open(asset);
  EXPECT_THAT(reports, ElementsAre("DepCalcDisplay::Paint Error#13: Type mismatch"));
  EXPECT_EQ(screen.AID.text(), "LEAP");
  EXPECT_TRUE(screen.SYDOption.value());
  EXPECT_EQ(screen.DisplayTable.rows(), 6);
  EXPECT_THAT(column(0), Each("")) << "nothing of the asset before";
  EXPECT_EQ(screen.UoPTable.text(0, 1), "");
  EXPECT_EQ(record().DepMethod(), "SYD");
  EXPECT_THAT(amounts(1), ElementsAre("5")) << "nothing was calculated or written";
  reports.clear();
  user.click(screen.SaveButton.normal);
  EXPECT_THAT(amounts(1), ElementsAre("5")) << "and nobody else's amounts are";
  EXPECT_THAT(reports,
              ElementsAre("DepCalcDisplay::PopulateDepInfo Error#9: Subscript out of range"));
}

TEST_F(Comparison, AMethodIsChosenEvenWhereTheTableHasNoRows) {
  auto asset = sample();
  asset->DepRecovery(40'000);
  open(asset);
  EXPECT_THAT(reports, ElementsAre("DepCalcDisplay::Paint Error#6: Overflow"));
  ASSERT_EQ(screen.DisplayTable.rows(), 0);
  EXPECT_NO_THROW(user.click(screen.UoPOption));
  EXPECT_EQ(record().DepMethod(), "UOP");
}

TEST_F(Comparison, MethodIsWrittenEvenWhereItsAmountsAreMissing) {
  auto asset = sample();
  asset->DepRecovery(0);
  open(asset);
  EXPECT_THAT(reports,
              ElementsAre("DepCalc::CalcDepSL Error#11: Division by zero",
                          "DepCalc::CalcDepSYD Error#6: Overflow",
                          "DepCalc::CalcDepDDB Error#11: Division by zero",
                          "DepCalcDisplay::DisplayCalcsinTable Error#9: Subscript out of range",
                          "DepCalcDisplay::PopulateDepInfo Error#9: Subscript out of range"));
  EXPECT_EQ(record().DepMethod(), "SL");
  EXPECT_THAT(column(0), ElementsAre("", "FY2023", "TOTAL"));
  reports.clear();
  user.click(screen.DDBOption);
  EXPECT_EQ(record().DepMethod(), "DDB");
  EXPECT_EQ(reports.size(), 1U);
  user.click(screen.UoPOption);
  EXPECT_EQ(record().DepMethod(), "UOP");
  EXPECT_EQ(reports.size(), 1U);
  user.click(screen.CloseButton.normal);
  EXPECT_EQ(record().DepMethod(), "");
  EXPECT_EQ(reports.size(), 1U);
}

TEST_F(Comparison, CalculationsThatCannotEvenStartAreReported) {
  auto asset = sample();
  asset->DepRecovery(-1.4);
  open(asset);
  EXPECT_THAT(reports, Contains("DepCalc::CalcDepSL Error#9: Subscript out of range"));
  reports.clear();
  asset->DepRecovery(-2);
  open(asset);
  EXPECT_THAT(reports,
              Contains("DepCalcDisplay::DoDepCalculations Error#9: Subscript out of range"));
}

TEST_F(Comparison, WithoutARecordItsProceduresReport) {
  screen.show();
  user.click(screen.SaveButton.normal);
  user.click(screen.CloseButton.normal);
  const std::string text = " Error#91: Object variable or With block variable not set";
  EXPECT_THAT(reports, ElementsAre("DepCalcDisplay::RevertDepInfo" + text));
  EXPECT_THAT(container.take(), ElementsAre("Save", "Close"));
  reports.clear();
  user.click(screen.SYDOption);
  EXPECT_THAT(reports, ElementsAre("DepCalcDisplay::PopulateDepInfo" + text));
}

TEST_F(Comparison, TakesTheHostsPaletteAndReportsWhenItCannot) {
  stage.setHostPalette([](UserControl&) { throw RuntimeError::objectNotSet(); });
  DepCalcDisplayCtl another{container, "Another", container};
  EXPECT_THAT(reports, ElementsAre("DepCalc::SetupPalette Error#91: Object variable or With block "
                                   "variable not set"));
}

TEST_F(Comparison, LetsGoOfTheRecordWhenItEnds) {
  container.record = sample();
  {
    DepCalcDisplayCtl another{container, "Another", container};
    another.show();
    stage.pumpPaint();
    EXPECT_EQ(container.record.use_count(), 2);
  }
  EXPECT_EQ(container.record.use_count(), 1);
}

// --- Labels, looks, layout ----------------------------------------------------------------------

TEST_F(Comparison, EveryLabelHasItsCaptionAndOpensItsTopic) {
  const std::tuple<Label*, std::string, std::string> labels[] = {
      {&screen.TitleLabel, "  Choose a depreciation method for your asset:", ""},
      {&screen.stepLabel, "Step 2 of 2", "Step"},
      {&screen.HelpLabel, "Using this calculator", "MainHelp"},
      {&screen.TotalHelp, "Why is the Double Declining Balance total different?", "Total"},
      {&screen.CalcDepLabel, "Calculate Depreciation", ""},
      {&screen.AIDLabel, "Asset ID", ""},
      {&screen.ANameLabel, "Name", ""}};
  open(sample());
  for (const auto& [label, caption, topic] : labels) {
    EXPECT_EQ(label->text(), caption);
    user.click(*label);
    if (topic.empty()) {
      EXPECT_THAT(container.take(), IsEmpty());
    } else {
      EXPECT_THAT(container.take(), ElementsAre("help " + topic));
    }
  }
  EXPECT_EQ(screen.ViewAllLabel.text(), "  View All   Assets  ");
  EXPECT_EQ(screen.SaveButton.normal.caption(), "Save");
  EXPECT_EQ(screen.CloseButton.normal.caption(), "Edit");
}

TEST_F(Comparison, ColoursArePaletteRelative) {
  for (const Label* label :
       {&screen.TitleLabel, &screen.TotalHelp, &screen.stepLabel, &screen.AIDLabel,
        &screen.ANameLabel, &screen.HelpLabel, &screen.ViewAllLabel}) {
    EXPECT_EQ(label->foreColour().value(), 0x02000066U) << label->name();
  }
  for (const OptionButton* option :
       {&screen.SLOption, &screen.SYDOption, &screen.DDBOption, &screen.UoPOption}) {
    EXPECT_EQ(option->backColour().value(), 0x02FFFFFFU) << option->name();
  }
  EXPECT_EQ(screen.ViewAllLabel.backColour().value(), 0x02A8C5E1U);
  EXPECT_EQ(screen.CalcDepLabel.foreColour().value(), 0x02E8F7FFU);
  EXPECT_EQ(screen.CalcDepLabel.backColour().value(), 0x02000066U);
}

TEST_F(Comparison, PageGrowsAndShrinksWithTheTable) {
  open(sample());
  EXPECT_EQ(container.resized, 1);
  const int five_years = screen.height();
  auto longer = sample();
  longer->DepRecovery(50);
  open(longer);
  EXPECT_EQ(screen.height(), five_years + 45 * 360);
  EXPECT_EQ(container.resized, 2);
  open(sample());
  EXPECT_EQ(screen.height(), five_years);
}

TEST_F(Comparison, LaysItselfOutAgainWhenResized) {
  open(sample());
  const Place place = screen.place();
  screen.setSize(500, 500);
  EXPECT_EQ(screen.place(), place);
  EXPECT_EQ(container.resized, 2);
}

TEST_F(Comparison, NothingOverlapsAndEverythingLiesInsideThePage) {
  open(sample());
  const auto below = [](const Control& upper, const Control& lower) {
    EXPECT_LE(upper.top() + upper.height(), lower.top()) << upper.name() << " " << lower.name();
  };
  below(screen.TitleLabel, screen.AID);
  below(screen.AID, screen.SLOption);
  below(screen.SLOption, screen.DisplayTable);
  below(screen.DisplayTable, screen.TotalHelp);
  below(screen.TotalHelp, screen.UoPTable);
  below(screen.UoPTable, screen.SaveButton.normal);
  for (const Control* control : screen.children()) {
    EXPECT_GT(control->width(), 0) << control->name();
    EXPECT_LE(control->left() + control->width(), screen.width()) << control->name();
    EXPECT_LE(control->top() + control->height(), screen.height()) << control->name();
  }
  // The options stand above their columns, and the table shows all of itself.
  const GridPicture picture = screen.DisplayTable.Picture();
  EXPECT_LE(picture.width(), screen.DisplayTable.width());
  EXPECT_LE(picture.height(), screen.DisplayTable.height());
  int column_left = screen.DisplayTable.left() + screen.DisplayTable.columnWidth(0);
  for (const OptionButton* option : {&screen.SLOption, &screen.SYDOption, &screen.DDBOption}) {
    EXPECT_EQ(option->left(), column_left);
    column_left += screen.DisplayTable.columnWidth(1);
  }
}

TEST_F(Comparison, TabGoesAsTheScreenIsRead) {
  open(sample());
  std::vector<std::string> visited;
  for (int i = 0; i < 6; ++i) {
    user.tab();
    visited.push_back(stage.focused()->name());
  }
  EXPECT_THAT(visited, ElementsAre("SLOption", "SYDOption", "DDBOption", "DisplayTable",
                                   "UoPOption", "UoPTable"));
}

TEST_F(Comparison, ArrowsMoveTheChoice) {
  open(sample());
  user.moveFocus(screen.SLOption);
  for (const char* method : {"SYD", "DDB", "UOP", "SL"}) {
    user.arrow(Direction::right);
    EXPECT_EQ(record().DepMethod(), method);
  }
}

}  // namespace
}  // namespace depcalc
