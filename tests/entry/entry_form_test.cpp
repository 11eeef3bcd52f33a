// The entry form as a whole: filling, checks, buttons, labels, looks.
#include "controls/colour_scheme.h"
#include "tests/support/entry_fixture.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using testing::EntryForm;
using ::testing::IsEmpty;

struct EntryScreen : EntryForm {
  /// An asset as the company file gives it back.
  void fillRecord() {
    record().RecNew(false);
    record().RecIndex("3");
    record().AssetID("TRK-014");
    record().AssetName("Delivery truck");
    record().ASerial("1FTYR10D");
    record().ADept("Warehouse");
    record().AssetStartDate(Date::strict(2023, 9, 15));
    record().FYEnd(Date::strict(2024, 6, 30));
    record().DepRecovery(5);
    record().DepConvention("1");
    record().AssetBasis(Currency::fromText("38450"));
    record().AssetSalvage(Currency::fromText("4000"));
    record().AssetProdCap("150000");
  }
  void openFilled() {
    container.record = std::make_shared<CalculateDep>();
    fillRecord();
    open();
  }
  /// Every field's text in the order of the screen.
  std::vector<std::string> texts() {
    std::vector<std::string> shown;
    for (const Control* control : form.children()) {
      if (const auto* box = dynamic_cast<const TextBox*>(control)) shown.push_back(box->text());
      if (const auto* list = dynamic_cast<const DropDownList*>(control)) {
        shown.push_back(list->text());
      }
    }
    return shown;
  }
};

// --- Filling ----------------------------------------------------------------------------------

TEST_F(EntryScreen, IsBlankForANewAsset) {
  openFilled();
  openNew();
  EXPECT_THAT(texts(), ElementsAre("", "", "", "", "", "April", "", "Full Year", "", "", ""));
  EXPECT_FALSE(record().RecNew());
  EXPECT_TRUE(form.IDText.hasFocus());
}

TEST_F(EntryScreen, HasNoFiscalMonthWhileTheCompanyHasNone) {
  container.fiscal_year_end = Date();
  openNew();
  EXPECT_EQ(form.FYEndText.text(), "");
}

TEST_F(EntryScreen, ShowsARecord) {
  openFilled();
  EXPECT_THAT(texts(),
              ElementsAre("TRK-014", "Delivery truck", "1FTYR10D", "Warehouse", "09/15/2023",
                          "July", "5", "Half Year", "38,450.00", "4,000.00", "150,000"));
  EXPECT_TRUE(form.IDText.hasFocus());
  EXPECT_EQ(container.fetched, 1);
}

TEST_F(EntryScreen, ShowsARecordOfZeros) {
  container.record = std::make_shared<CalculateDep>();
  open();
  EXPECT_THAT(texts(), ElementsAre("", "", "", "", "", "April", "", "Full Year", "", "0", ""));
  container.fiscal_year_end = Date();
  open();
  EXPECT_EQ(form.FYEndText.text(), "");
}

TEST_F(EntryScreen, ShowsEveryConvention) {
  const std::pair<std::string, std::string> cases[] = {
      {"1", "Half Year"}, {"2", "Full Month"}, {"3", "Half Month"}, {"4", "Actual Days"},
      {"0", "Full Year"}, {"7", "Full Year"},  {"-1", "Full Year"}};
  for (const auto& [digit, item] : cases) {
    openFilled();
    record().DepConvention(digit);
    open();
    EXPECT_EQ(form.DConvList.text(), item) << digit;
  }
}

TEST_F(EntryScreen, ShowsAFractionalLifeAsAPlainNumber) {
  fillRecord();
  record().DepRecovery(2.5);
  record().AssetProdCap("12344.5");
  open();
  EXPECT_EQ(form.DRecoveryText.text(), "2.5");
  EXPECT_EQ(form.ProdCapText.text(), "12,344");
}

TEST_F(EntryScreen, FillsOncePerShowing) {
  openFilled();
  form.NameText.setText("typed");
  stage.expose();
  stage.pumpPaint();
  EXPECT_EQ(form.NameText.text(), "typed");
  EXPECT_EQ(container.fetched, 1);
  open();
  EXPECT_EQ(form.NameText.text(), "Delivery truck");
  EXPECT_EQ(container.fetched, 2);
}

TEST_F(EntryScreen, IsFilledAsSoonAsItIsShown) {
  fillRecord();
  form.show();
  EXPECT_EQ(form.NameText.text(), "Delivery truck");
  EXPECT_TRUE(form.IDText.hasFocus());
  stage.pumpPaint();
  EXPECT_EQ(container.fetched, 1) << "the paint that follows finds it filled";
}

TEST_F(EntryScreen, FillsAgainAfterAButtonHasActed) {
  for (int button = 0; button < 4; ++button) {
    openFilled();
    const int fetched = container.fetched;
    if (button == 0) user.click(form.CalcButton.normal);
    if (button == 1) user.click(form.ClearButton.normal);
    if (button == 2) user.click(form.SaveButton.normal);
    if (button == 3) user.click(form.ViewAllLabel);
    EXPECT_EQ(container.fetched, fetched);
    stage.expose();
    stage.pumpPaint();
    EXPECT_EQ(container.fetched, fetched + 1) << button;
  }
}

TEST_F(EntryScreen, StopsFillingWhereAValueCannotBeShown) {
  openFilled();
  fillRecord();
  record().AssetName("Another");
  record().FYEnd(Date::strict(9999, 12, 31));
  record().AssetBasis(Currency::fromText("7"));
  user.moveFocus(form.BasisText);
  trace.take();
  stage.expose();
  user.click(form.ClearButton.normal);  // lets the form fill again
  stage.pumpPaint();
  EXPECT_EQ(form.NameText.text(), "Another");
  EXPECT_EQ(form.BasisText.text(), "7.00");
  EXPECT_EQ(form.FYEndText.text(), "July") << "what it showed before";
  EXPECT_TRUE(form.BasisText.hasFocus()) << "the focus is not moved";
  EXPECT_THAT(reports, ElementsAre("DepCalcCtl::Paint Error#5: Invalid procedure call or "
                                   "argument"));
}

// --- BlankData --------------------------------------------------------------------------------

TEST_F(EntryScreen, CalculateAsksForTheFirstRequiredFieldThatIsEmpty) {
  const std::tuple<TextBox*, std::string, std::string> steps[] = {
      {&form.StartDateText, "Placed-in-service Date | Please enter the Placed-in-service Date.",
       "9/15/2023"},
      {&form.FYEndText, "End of Fiscal Year | Please enter the end of your fiscal year.", "July"},
      {&form.DRecoveryText, "Useful Life | Please enter the useful life.", "5"},
      {&form.BasisText, "Basis | Please enter the basis.", "1000"},
      {&form.SalvageText, "Salvage Value | Please enter the salvage value.", "0"},
  };
  container.fiscal_year_end = Date();
  openNew();
  for (const auto& [field, message, text] : steps) {
    user.click(form.CalcButton.normal);
    EXPECT_THAT(boxes(), ElementsAre(message));
    EXPECT_TRUE(field->hasFocus()) << field->name();
    EXPECT_FALSE(form.dataValid());
    EXPECT_THAT(container.take(), IsEmpty());
    user.paste(text);
  }
  user.click(form.CalcButton.normal);
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_THAT(container.take(), ElementsAre("Calc"));
  EXPECT_EQ(record().AssetBasis(), Currency::fromText("1000"));
}

TEST_F(EntryScreen, CalculateForgetsThatTheFormWasFoundValidBefore) {
  openFilled();
  form.ValidateData();
  ASSERT_TRUE(form.dataValid());
  typeInto(form.DRecoveryText, "");
  user.click(form.CalcButton.normal);
  EXPECT_THAT(boxes(), ElementsAre("Useful Life | Please enter the useful life."));
  EXPECT_FALSE(form.dataValid());
  EXPECT_THAT(container.take(), IsEmpty());
}

// --- ValidateData -----------------------------------------------------------------------------

TEST_F(EntryScreen, BlankFormPasses) {
  openNew();
  form.ValidateData();
  EXPECT_TRUE(form.dataValid());
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_TRUE(form.ProdCapText.hasFocus());
  for (const std::string salvage : {"", "0"}) {
    for (const std::string month : {"", "April"}) {
      openNew();
      form.SalvageText.setText(salvage);
      form.FYEndText.setText(month);
      form.ValidateData();
      EXPECT_TRUE(form.dataValid()) << salvage << month;
    }
  }
  // The date does not count.
  openNew();
  form.StartDateText.setText("03/15/2020");
  record().FYEnd(Date());
  form.ValidateData();
  EXPECT_TRUE(form.dataValid());
  EXPECT_TRUE(record().FYEnd().isNone()) << "a blank form stores no fiscal-year end";
}

TEST_F(EntryScreen, AnyOtherTextMakesTheFormOneThatNeedsADate) {
  const std::pair<TextBox*, std::string> texts[] = {
      {&form.IDText, "1"},        {&form.NameText, "n"},       {&form.DeptText, "d"},
      {&form.SerialText, "s"},    {&form.BasisText, "5"},      {&form.ProdCapText, "5"},
      {&form.DRecoveryText, "5"}, {&form.SalvageText, "0.00"}, {&form.FYEndText, "May"},
      {&form.IDText, " "}};
  for (const auto& [field, text] : texts) {
    SCOPED_TRACE(field->name());
    openNew();
    field->setText(text);
    form.ValidateData();
    EXPECT_FALSE(form.dataValid());
    EXPECT_THAT(boxes(), ElementsAre("Placed-in-service Date | Please enter the "
                                     "Placed-in-service Date."));
    EXPECT_TRUE(form.StartDateText.hasFocus());
  }
}

TEST_F(EntryScreen, BlankFormIsComparedWithTheCompanysMonthEvenWhenThatIsUnknown) {
  container.fiscal_year_end = Date();
  openNew();
  form.FYEndText.setText("December");
  form.ValidateData();
  EXPECT_TRUE(form.dataValid()) << "day 1 of the calendar is in December";
}

TEST_F(EntryScreen, SalvageAboveBasisIsRefusedForTheWholeForm) {
  const std::tuple<std::string, std::string, bool> cases[] = {
      {"100", "150", false}, {"150", "150", true}, {"", "150", false},
      {"", "0", true},       {"100", "", true},    {"100", "99.99", true}};
  for (const auto& [basis, salvage, valid] : cases) {
    openNew();
    form.StartDateText.setText("03/15/2020");
    form.IDText.setText("x");
    form.SalvageText.setText(salvage);
    form.BasisText.setText(basis);
    form.ValidateData();
    EXPECT_EQ(form.dataValid(), valid) << basis << " / " << salvage;
    if (valid) {
      EXPECT_THAT(boxes(), IsEmpty());
    } else {
      EXPECT_THAT(boxes(), ElementsAre("Salvage Value | The salvage value of the asset must be "
                                       "less than the basis."));
      EXPECT_TRUE(form.SalvageText.hasFocus());
    }
  }
}

TEST_F(EntryScreen, SalvageOfZeroIsNeverTooMuch) {
  openFilled();
  record().AssetBasis(Currency::fromText("-5"));
  record().AssetSalvage(Currency());
  open();
  form.ValidateData();
  EXPECT_TRUE(form.dataValid());
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(EntryScreen, BasisThatIsNoNumberCountsAsZero) {
  openFilled();
  // Without its handler a field can hold what no user can type.
  form.BasisText.onChange = nullptr;
  form.BasisText.setText("much");
  form.ValidateData();
  EXPECT_FALSE(form.dataValid());
  EXPECT_THAT(boxes(), ElementsAre("Salvage Value | The salvage value of the asset must be less "
                                   "than the basis."));
}

TEST_F(EntryScreen, ValidFormTakesTheCompanysFiscalYearEnd) {
  openFilled();
  form.ValidateData();
  EXPECT_EQ(record().FYEnd(), Date::strict(2024, 6, 30)) << "its own stays";
  record().FYEnd(Date());
  form.ValidateData();
  EXPECT_TRUE(form.dataValid());
  EXPECT_EQ(record().FYEnd(), Date::strict(2024, 3, 31));
}

TEST_F(EntryScreen, FieldWithTheFocusValidatesOnTheWay) {
  openFilled();
  user.moveFocus(form.BasisText);
  user.paste("40000");
  form.ValidateData();
  EXPECT_TRUE(form.dataValid());
  EXPECT_EQ(record().AssetBasis(), Currency::fromText("40000"));
}

TEST_F(EntryScreen, BothFocusMovesHappenEvenIfTheFirstIsRefused) {
  openFilled();
  user.moveFocus(form.BasisText);
  user.paste("0");
  trace.take();
  form.ValidateData();
  // Refused once, the emptied basis leaves at the second move and counts as 0.
  EXPECT_THAT(boxes(), ElementsAre("Basis | The basis must be greater than 0.",
                                   "Salvage Value | The salvage value of the asset must be less "
                                   "than the basis."));
  EXPECT_EQ(record().AssetBasis(), Currency());
  EXPECT_TRUE(form.SalvageText.hasFocus());
  EXPECT_THAT(
      trace.take(),
      ElementsAre("BasisText.Validate", "box Basis | The basis must be greater than 0. | OK -> OK",
                  "BasisText.Change", "BasisText.Validate",
                  "box Salvage Value | The salvage value of the asset must be less than "
                  "the basis. | OK -> OK",
                  "ProdCapText.Validate"));
}

TEST_F(EntryScreen, ReportsWhatEndsTheCheckOfTheForm) {
  container.record = nullptr;
  open();
  reports.clear();
  form.StartDateText.setText("03/15/2020");
  form.BlankData();
  EXPECT_FALSE(form.dataValid());
  form.FYEndText.setText("July");
  form.DRecoveryText.setText("5");
  form.BasisText.setText("5");
  form.SalvageText.setText("0");
  boxes();
  reports.clear();
  form.BlankData();
  EXPECT_FALSE(form.dataValid());
  EXPECT_EQ(reports.back(),
            "DepCalcCtl::ValidateData Error#91: Object variable or With block "
            "variable not set");
}

// --- Buttons ----------------------------------------------------------------------------------

TEST_F(EntryScreen, ButtonsActOnThePressAndOnlyOnce) {
  openFilled();
  user.mouseDown(form.SaveButton.normal);
  EXPECT_THAT(container.take(), ElementsAre("Save"));
  EXPECT_FALSE(form.SaveButton.pressed.visible());
  user.mouseUp(&form.SaveButton.normal);
  EXPECT_THAT(container.take(), IsEmpty());
}

TEST_F(EntryScreen, ButtonsShowTheirPressedPictureWhilePressed) {
  openFilled();
  for (PicturePair* button : {&form.CalcButton, &form.ClearButton, &form.SaveButton}) {
    std::vector<bool> seen;
    const auto watch = button->pressed.observe([&](Aspect aspect) {
      if (aspect == Aspect::visible) seen.push_back(button->pressed.visible());
    });
    EXPECT_FALSE(button->pressed.visible());
    user.click(button->normal);
    EXPECT_THAT(seen, ElementsAre(true, false));
  }
}

TEST_F(EntryScreen, ClickingAButtonOrALabelValidatesNothing) {
  openFilled();
  user.moveFocus(form.BasisText);
  user.paste("0");
  user.click(form.ClearButton.normal);
  user.click(form.ABasisLabel);
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_TRUE(form.BasisText.hasFocus());
  EXPECT_EQ(record().AssetBasis(), Currency::fromText("38450"));
}

TEST_F(EntryScreen, SaveWithoutADateAsksForItAndForgetsTheIndex) {
  openFilled();
  typeInto(form.StartDateText, "");
  user.click(form.SaveButton.normal);
  EXPECT_THAT(boxes(), ElementsAre("Placed-in-service Date | Please enter the Placed-in-service "
                                   "date."));
  EXPECT_TRUE(form.StartDateText.hasFocus());
  EXPECT_EQ(record().RecIndex(), "0");
  EXPECT_FALSE(form.dataValid());
  EXPECT_THAT(container.take(), IsEmpty());
}

TEST_F(EntryScreen, SaveOfABlankFormAsksForTheDateToo) {
  openNew();
  form.ValidateData();
  ASSERT_TRUE(form.dataValid());
  user.click(form.SaveButton.normal);
  EXPECT_EQ(boxes().size(), 1U);
  EXPECT_THAT(container.take(), IsEmpty()) << "what was found valid before does not count";
}

TEST_F(EntryScreen, SaveChecksTheFormAndSaves) {
  openFilled();
  user.click(form.SaveButton.normal);
  EXPECT_THAT(container.take(), ElementsAre("Save"));
  typeInto(form.BasisText, "");
  user.click(form.SaveButton.normal);
  EXPECT_EQ(boxes().size(), 1U);
  EXPECT_THAT(container.take(), IsEmpty());
  EXPECT_EQ(record().RecIndex(), "3");
}

TEST_F(EntryScreen, NewAsksOnlyWhenThereAreChanges) {
  openFilled();
  user.click(form.ClearButton.normal);
  EXPECT_THAT(container.take(), ElementsAre("CheckMe", "New"));
  EXPECT_THAT(site.takeBoxes(), IsEmpty());
}

const MessageBox save_question{
    "You have not saved your changes to this asset. Would you like to save them now?",
    BoxButtons::yesNoCancel, "Save Changes"};

TEST_F(EntryScreen, NewWithChangesSavesDropsOrStays) {
  const std::tuple<BoxAnswer, std::vector<std::string>> cases[] = {
      {BoxAnswer::yes, {"CheckMe", "SaveandNew"}},
      {BoxAnswer::no, {"CheckMe", "New"}},
      {BoxAnswer::cancel, {"CheckMe"}}};
  container.changed = true;
  for (const auto& [answer, said] : cases) {
    openFilled();
    site.answers = {answer};
    user.click(form.ClearButton.normal);
    EXPECT_THAT(site.takeBoxes(), ElementsAre(save_question));
    EXPECT_EQ(container.take(), said);
  }
}

TEST_F(EntryScreen, NewAnsweredYesSavesOnlyAValidForm) {
  container.changed = true;
  openFilled();
  typeInto(form.BasisText, "");
  site.answers = {BoxAnswer::yes};
  user.click(form.ClearButton.normal);
  EXPECT_EQ(site.takeBoxes().size(), 2U);
  EXPECT_THAT(container.take(), ElementsAre("CheckMe"));
}

TEST_F(EntryScreen, ViewAllChecksTheFormFirst) {
  container.changed = true;
  openFilled();
  typeInto(form.BasisText, "");
  user.click(form.ViewAllLabel);
  EXPECT_EQ(boxes().size(), 1U);
  EXPECT_THAT(container.take(), IsEmpty());
}

TEST_F(EntryScreen, ViewAllSavesDropsOrStays) {
  const std::tuple<bool, BoxAnswer, std::vector<std::string>> cases[] = {
      {true, BoxAnswer::yes, {"CheckMe", "Save"}},
      {true, BoxAnswer::no, {"CheckMe", "ViewAll"}},
      {true, BoxAnswer::cancel, {"CheckMe"}},
      {false, BoxAnswer::ok, {"CheckMe", "ViewAll"}}};
  for (const auto& [changed, answer, said] : cases) {
    container.changed = changed;
    openFilled();
    site.answers.clear();
    if (changed) site.answers = {answer};
    user.click(form.ViewAllLabel);
    const auto asked = site.takeBoxes();
    EXPECT_EQ(asked.size(), changed ? 1U : 0U);
    if (changed) {
      EXPECT_EQ(asked.front(), save_question);
    }
    EXPECT_EQ(container.take(), said);
  }
}

TEST_F(EntryScreen, ViewAllFromAnUntouchedNewFormPasses) {
  openNew();
  user.click(form.ViewAllLabel);
  EXPECT_THAT(container.take(), ElementsAre("CheckMe", "ViewAll"));
  EXPECT_THAT(boxes(), IsEmpty());
}

// --- Labels and looks ---------------------------------------------------------------------------

TEST_F(EntryScreen, EveryLabelHasItsCaptionAndOpensItsTopic) {
  const std::tuple<Label*, std::string, std::string> labels[] = {
      {&form.TitleLabel, "Enter information about your fixed asset:", ""},
      {&form.CalcDepLabel, "Calculate Depreciation", ""},
      {&form.stepLabel, "Step 1 of 2", "Step1"},
      {&form.HelpLabel, "Using this calculator", "MainHelp"},
      {&form.AIDLabel, "Asset ID", "ID"},
      {&form.ANameLabel, "Name", "Name"},
      {&form.ASerialLabel, "Serial Number", "Serial"},
      {&form.ADeptLabel, "Department/Location", "Dept"},
      {&form.AStartDateLabel, "Placed-in-service Date", "StartDate"},
      {&form.FYEndLabel, "First Month of Fiscal Year", "FY"},
      {&form.DRecoveryLabel, "Useful Life", "Recovery"},
      {&form.DConvLabel, "Convention", "Convention"},
      {&form.ABasisLabel, "Basis", "Basis"},
      {&form.ASalvageLabel, "Salvage Value", "Salvage"},
      {&form.ProdCapLabel, "Production Capacity", "ProdCap"},
  };
  openNew();
  for (const auto& [label, caption, topic] : labels) {
    EXPECT_EQ(label->text(), caption);
    user.click(*label);
    if (topic.empty()) {
      EXPECT_THAT(container.take(), IsEmpty()) << caption;
    } else {
      EXPECT_THAT(container.take(), ElementsAre("help " + topic));
    }
  }
  EXPECT_EQ(form.ViewAllLabel.text(), "  View All   Assets  ");
}

TEST_F(EntryScreen, TabGoesThroughTheFieldsAsTheyAreRead) {
  openNew();
  std::vector<std::string> visited;
  for (int i = 0; i < 11; ++i) {
    visited.push_back(stage.focused()->name());
    user.tab();
  }
  EXPECT_THAT(visited, ElementsAre("IDText", "NameText", "SerialText", "DeptText", "StartDateText",
                                   "FYEndText", "DRecoveryText", "DConvList", "BasisText",
                                   "SalvageText", "ProdCapText"));
  EXPECT_TRUE(form.IDText.hasFocus());
}

TEST_F(EntryScreen, FieldsStandInTwoColumnsBesideTheirLabels) {
  const std::pair<Label*, InputControl*> left[] = {{&form.AIDLabel, &form.IDText},
                                                   {&form.ANameLabel, &form.NameText},
                                                   {&form.ASerialLabel, &form.SerialText},
                                                   {&form.ADeptLabel, &form.DeptText},
                                                   {&form.AStartDateLabel, &form.StartDateText},
                                                   {&form.FYEndLabel, &form.FYEndText}};
  const std::pair<Label*, InputControl*> right[] = {{&form.DRecoveryLabel, &form.DRecoveryText},
                                                    {&form.DConvLabel, &form.DConvList},
                                                    {&form.ABasisLabel, &form.BasisText},
                                                    {&form.ASalvageLabel, &form.SalvageText},
                                                    {&form.ProdCapLabel, &form.ProdCapText}};
  const auto check = [&](const auto& column) {
    int above = 0;
    for (const auto& [label, box] : column) {
      EXPECT_EQ(label->target(), box);
      EXPECT_LE(label->left() + label->width(), box->left());
      EXPECT_GE(label->top(), box->top());
      EXPECT_LE(label->top() + label->height(), box->top() + box->height());
      EXPECT_GE(box->top(), above);
      above = box->top() + box->height();
      EXPECT_LE(box->left() + box->width(), form.width());
      EXPECT_LE(above, form.CalcButton.normal.top());
    }
  };
  check(left);
  check(right);
  EXPECT_GT(form.DRecoveryLabel.left(), form.IDText.left() + form.IDText.width());
  for (const TextBox* amount :
       {&form.DRecoveryText, &form.BasisText, &form.SalvageText, &form.ProdCapText}) {
    EXPECT_EQ(amount->alignment(), TextAlignment::right);
  }
  EXPECT_EQ(form.StartDateText.alignment(), TextAlignment::left);
}

TEST_F(EntryScreen, EverythingLiesInsideThePage) {
  for (const Control* control : form.children()) {
    EXPECT_GT(control->width(), 0) << control->name();
    EXPECT_GT(control->height(), 0) << control->name();
    EXPECT_GE(control->left(), 0) << control->name();
    EXPECT_LE(control->left() + control->width(), form.width()) << control->name();
    EXPECT_LE(control->top() + control->height(), form.height()) << control->name();
  }
}

TEST_F(EntryScreen, ColoursArePaletteRelative) {
  EXPECT_EQ(form.TitleLabel.foreColour().value(), 0x02000066U);
  EXPECT_EQ(form.AIDLabel.foreColour(), scheme::dark_red);
  EXPECT_EQ(form.CalcDepLabel.foreColour().value(), 0x02E8F7FFU);
  EXPECT_EQ(form.CalcDepLabel.backColour(), scheme::dark_red);
  EXPECT_EQ(form.ViewAllLabel.backColour().value(), 0x02A8C5E1U);
  EXPECT_EQ(form.backColour().value(), 0x02FFFFFFU);
  EXPECT_EQ(scheme::light_grey.value(), 0x02EFEFEFU);
  EXPECT_EQ(Colour(0x80000005).paletteRelative().value(), 0x80000005U) << "a system colour stays";
}

TEST_F(EntryScreen, ButtonsReadWhatTheHelpCallsThem) {
  EXPECT_EQ(form.CalcButton.normal.caption(), "Calculate");
  EXPECT_EQ(form.ClearButton.normal.caption(), "New");
  EXPECT_EQ(form.SaveButton.normal.caption(), "Save");
}

TEST_F(EntryScreen, TakesTheHostsPaletteAndReportsWhenItCannot) {
  stage.setHostPalette([](UserControl&) { throw RuntimeError::objectNotSet(); });
  DepCalcCtl another{container, "Another", container};
  EXPECT_THAT(reports, ElementsAre("DepCalc::SetupPalette Error#91: Object variable or With block "
                                   "variable not set"));
  EXPECT_EQ(another.DConvList.text(), "Full Year");
}

TEST_F(EntryScreen, LetsGoOfTheRecordWhenItEnds) {
  {
    DepCalcCtl another{container, "Another", container};
    another.show();
    stage.pumpPaint();
    EXPECT_EQ(container.record.use_count(), 2);
  }
  EXPECT_EQ(container.record.use_count(), 1);
}

}  // namespace
}  // namespace depcalc
