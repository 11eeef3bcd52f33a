// The fields of the entry form: typing, pasting, leaving and coming back.
#include "tests/support/entry_fixture.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using testing::EntryForm;
using ::testing::IsEmpty;

struct EntryFields : EntryForm {
  EntryFields() { openNew(); }
};

// --- Free texts ----------------------------------------------------------------------------

TEST_F(EntryFields, FreeTextsAreStoredUntrimmedWhenLeft) {
  const struct {
    TextBox& field;
    const std::string& (CalculateDep::*stored)() const;
  } fields[] = {{form.IDText, &CalculateDep::AssetID},
                {form.NameText, &CalculateDep::AssetName},
                {form.SerialText, &CalculateDep::ASerial},
                {form.DeptText, &CalculateDep::ADept}};
  for (const auto& [field, stored] : fields) {
    SCOPED_TRACE(field.name());
    user.moveFocus(field);
    for (const char key : std::string(" a b ")) {
      user.typeKey(static_cast<char32_t>(key));
      EXPECT_EQ((record().*stored)(), "") << "nothing is stored while typing";
    }
    EXPECT_TRUE(leave(field));
    EXPECT_EQ((record().*stored)(), " a b ");
    EXPECT_TRUE(typeInto(field, ""));
    EXPECT_EQ((record().*stored)(), "");
  }
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(EntryFields, FreeTextsTakeTwentyTypedCharacters) {
  for (TextBox* field : {&form.IDText, &form.NameText, &form.SerialText, &form.DeptText}) {
    SCOPED_TRACE(field->name());
    site.beeps = 0;
    user.moveFocus(*field);
    for (int i = 1; i <= 20; ++i) {
      user.typeKey(U'x');
      EXPECT_EQ(field->text().size(), static_cast<std::size_t>(i));
      EXPECT_EQ(site.beeps, 0);
    }
    user.typeKey(U'y');
    EXPECT_EQ(field->text(), std::string(20, 'x'));
    EXPECT_EQ(site.beeps, 1);
    user.typeKey(0xE9);
    EXPECT_EQ(field->text(), std::string(20, 'x') + "\xC3\xA9") << "above 126 goes through";
    EXPECT_EQ(site.beeps, 2);
    user.typeKey(User::backspace);
    user.typeKey(User::backspace);
    EXPECT_EQ(field->text(), std::string(19, 'x'));
    EXPECT_EQ(site.beeps, 4) << "Backspace beeps as well";
    user.typeKey(User::backspace);
    EXPECT_EQ(site.beeps, 4);
    user.paste(std::string(35, 'z'));
    EXPECT_EQ(field->text(), std::string(35, 'z')) << "what is pasted is not limited";
    EXPECT_EQ(site.beeps, 4);
    EXPECT_TRUE(leave(*field));
  }
}

TEST_F(EntryFields, OtherFieldsHaveNoLimit) {
  user.moveFocus(form.ProdCapText);
  user.type("1234567890123456789012345");
  EXPECT_EQ(form.ProdCapText.text().size(), 25U);
  EXPECT_EQ(site.beeps, 0);
}

// --- Placed-in-service date -----------------------------------------------------------------

TEST_F(EntryFields, DateIsNormalisedStoredAndKeptOnReturn) {
  const std::pair<std::string, std::string> cases[] = {
      {"3.15.2020", "03/15/2020"}, {"3/15", "03/15/2024"},       {"03152020", "03/15/2020"},
      {"0315", "03/15/2024"},      {"06/15/2074", "06/15/2074"}, {"06/15/1974", "06/15/1974"},
  };
  for (const auto& [typed, shown] : cases) {
    EXPECT_TRUE(typeInto(form.StartDateText, typed)) << typed;
    EXPECT_EQ(form.StartDateText.text(), shown) << typed;
    EXPECT_EQ(record().AssetStartDate().toText(), shown) << typed;
    EXPECT_TRUE(user.moveFocus(form.StartDateText));
    EXPECT_TRUE(leave(form.StartDateText));
    EXPECT_EQ(form.StartDateText.text(), shown) << typed;
  }
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_THAT(reports, IsEmpty());
}

TEST_F(EntryFields, RefusedDateIsEmptiedKeepsTheFocusAndLeavesTheRecord) {
  typeInto(form.StartDateText, "3/15/2020");
  const std::pair<std::string, std::string> cases[] = {
      {"13/5/2020", "Please enter a valid date."},
      {"March", "Please enter a valid date."},
      {"06/16/2074", "Please enter a date less than 50 years from today."},
      {"06/14/1974", "Please enter a date less than 50 years ago."},
  };
  for (const auto& [typed, message] : cases) {
    EXPECT_FALSE(typeInto(form.StartDateText, typed)) << typed;
    EXPECT_THAT(boxes(), ElementsAre("Placed-in-service Date | " + message)) << typed;
    EXPECT_EQ(form.StartDateText.text(), "") << typed;
    EXPECT_TRUE(form.StartDateText.hasFocus()) << typed;
    EXPECT_EQ(record().AssetStartDate(), Date::strict(2020, 3, 15)) << typed;
  }
}

TEST_F(EntryFields, DateStandsInTheFieldInFullWhenItIsHeldAgainstTheLimit) {
  const std::string box = "box Placed-in-service Date | Please enter a date less than 50 years ";
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"1.1.2090", "01/01/2090", box + "from today. | OK -> OK"},
      {"01011960", "01/01/1960", box + "ago. | OK -> OK"},
  };
  for (const auto& [typed, shown, message] : cases) {
    user.moveFocus(form.StartDateText);
    user.paste(typed);
    trace.take();
    std::vector<std::string> seen;
    const auto watch = form.StartDateText.observe([&](Aspect aspect) {
      if (aspect == Aspect::text) seen.push_back(form.StartDateText.text());
    });
    EXPECT_FALSE(leave(form.StartDateText));
    EXPECT_THAT(seen, ElementsAre(shown, ""));
    EXPECT_THAT(trace.take(), ElementsAre("StartDateText.Validate", "StartDateText.Change", message,
                                          "StartDateText.Change"));
  }
}

TEST_F(EntryFields, EmptyDateMovesOnQuietly) {
  typeInto(form.StartDateText, "3/15/2020");
  EXPECT_TRUE(typeInto(form.StartDateText, ""));
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_EQ(record().AssetStartDate(), Date::strict(2020, 3, 15));
  EXPECT_THAT(reports, ElementsAre("DepCalcCtl::StartDateText_Validate Error#13: Type mismatch"));
}

TEST_F(EntryFields, DateOfTooFewPartsKeepsItsTextQuietly) {
  EXPECT_TRUE(typeInto(form.StartDateText, "3/152020"));
  EXPECT_EQ(form.StartDateText.text(), "3/152020");
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_THAT(reports,
              ElementsAre("DepCalcCtl::StartDateText_Validate Error#9: Subscript out of range"));
  // It is still marked as changed: the next visit checks it again.
  user.moveFocus(form.StartDateText);
  EXPECT_TRUE(leave(form.StartDateText));
  EXPECT_EQ(reports.size(), 2U);
  EXPECT_EQ(reports[0], reports[1]);
}

TEST_F(EntryFields, DateLimitHoldsForADateThatNobodyTouched) {
  typeInto(form.StartDateText, "06/15/2074");
  site.current_day = Date::strict(2024, 6, 14);
  user.moveFocus(form.StartDateText);
  EXPECT_FALSE(leave(form.StartDateText));
  EXPECT_THAT(boxes(), ElementsAre("Placed-in-service Date | Please enter a date less than 50 "
                                   "years from today."));
}

// --- First month of the fiscal year ----------------------------------------------------------

TEST_F(EntryFields, FiscalMonthIsNoDateAndStoresNothing) {
  EXPECT_EQ(form.FYEndText.text(), "April");
  user.moveFocus(form.FYEndText);
  EXPECT_TRUE(leave(form.FYEndText));
  EXPECT_TRUE(typeInto(form.FYEndText, "July"));
  EXPECT_TRUE(record().FYEnd().isNone());
  EXPECT_EQ(form.FYEndText.text(), "July");
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_THAT(reports, ElementsAre("DepCalcCtl::FYEndText_Validate Error#13: Type mismatch",
                                   "DepCalcCtl::FYEndText_Validate Error#13: Type mismatch"));
}

TEST_F(EntryFields, FiscalMonthAsADateStoresTheDayBefore) {
  EXPECT_TRUE(typeInto(form.FYEndText, "7/1/2024"));
  EXPECT_EQ(record().FYEnd(), Date::strict(2024, 6, 30));
  EXPECT_EQ(form.FYEndText.text(), "7/1/2024");
}

// --- Numeric fields --------------------------------------------------------------------------

TEST_F(EntryFields, NumbersAreRefusedWhileTyping) {
  const std::pair<TextBox*, std::string> fields[] = {{&form.DRecoveryText, "Useful Life"},
                                                     {&form.BasisText, "Basis"},
                                                     {&form.SalvageText, "Salvage Value"},
                                                     {&form.ProdCapText, "Production Capacity"}};
  for (const auto& [field, title] : fields) {
    SCOPED_TRACE(title);
    const std::string message = title + " | Please enter a valid number.";
    user.moveFocus(*field);
    for (const char32_t first : {U'-', U'.', U'x', U' '}) {
      user.typeKey(first);
      EXPECT_THAT(boxes(), ElementsAre(message));
      EXPECT_EQ(field->text(), "");
      EXPECT_TRUE(field->hasFocus());
    }
    user.type("12");
    trace.take();
    user.typeKey(U'x');
    const std::string name = field->name();
    EXPECT_THAT(trace.take(), ElementsAre(name + ".KeyPress", name + ".Change",
                                          "box " + message + " | OK -> OK", name + ".Change"));
    EXPECT_THAT(boxes(), ElementsAre(message));
    user.paste("1O");
    EXPECT_THAT(boxes(), ElementsAre(message));
    user.type("1.");
    user.type("5");
    user.typeKey(User::backspace);
    user.typeKey(User::backspace);
    user.typeKey(User::backspace);
    EXPECT_EQ(field->text(), "");
    EXPECT_THAT(boxes(), IsEmpty());
  }
}

TEST_F(EntryFields, NumberRefusedInAFieldWithoutTheFocusTakesTheFocus) {
  form.BasisText.setText("much");
  EXPECT_THAT(boxes(), ElementsAre("Basis | Please enter a valid number."));
  EXPECT_EQ(form.BasisText.text(), "");
  EXPECT_TRUE(form.BasisText.hasFocus());
}

TEST_F(EntryFields, LifeIsRoundedAndStored) {
  const std::tuple<std::string, std::string, double> cases[] = {{"5", "5", 5},   {"2.5", "2", 2},
                                                                {"3.5", "4", 4}, {"50", "50", 50},
                                                                {"1.4", "1", 1}, {"", "", 0}};
  for (const auto& [typed, shown, stored] : cases) {
    EXPECT_TRUE(typeInto(form.DRecoveryText, typed)) << typed;
    EXPECT_EQ(form.DRecoveryText.text(), shown);
    EXPECT_EQ(record().DepRecovery(), stored);
    user.moveFocus(form.DRecoveryText);
    EXPECT_TRUE(leave(form.DRecoveryText));
    EXPECT_EQ(form.DRecoveryText.text(), shown);
    EXPECT_EQ(record().DepRecovery(), stored);
  }
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(EntryFields, LifeOutOfRangeIsRefused) {
  typeInto(form.DRecoveryText, "5");
  const std::pair<std::string, std::string> cases[] = {
      {"0", "The useful life must be a positive number."},
      {"0.6", "The useful life must be a positive number."},
      {"-3", "The useful life must be a positive number."},
      {"50.01", "Please enter a number less than or equal to 50."},
      {"50.4", "Please enter a number less than or equal to 50."},
  };
  for (const auto& [text, message] : cases) {
    EXPECT_FALSE(pasteInto(form.DRecoveryText, text));
    EXPECT_THAT(boxes(), ElementsAre("Useful Life | " + message)) << text;
    EXPECT_EQ(form.DRecoveryText.text(), "");
    EXPECT_TRUE(form.DRecoveryText.hasFocus());
    EXPECT_EQ(record().DepRecovery(), 5);
  }
  // The emptied field then leaves as an empty one does.
  EXPECT_TRUE(leave(form.DRecoveryText));
  EXPECT_EQ(record().DepRecovery(), 0);
}

TEST_F(EntryFields, AmountsAreShownAndStoredInCents) {
  EXPECT_TRUE(typeInto(form.BasisText, "38450"));
  EXPECT_EQ(form.BasisText.text(), "38,450.00");
  EXPECT_EQ(record().AssetBasis(), Currency::fromText("38450"));
  EXPECT_TRUE(typeInto(form.SalvageText, "4000.005"));
  EXPECT_EQ(form.SalvageText.text(), "4,000.00");
  EXPECT_EQ(record().AssetSalvage(), Currency::fromText("4000"));
  EXPECT_TRUE(typeInto(form.SalvageText, "0"));
  EXPECT_EQ(form.SalvageText.text(), "0.00");
  EXPECT_EQ(record().AssetSalvage(), Currency());
  EXPECT_TRUE(pasteInto(form.BasisText, " 9999999.99 "));
  EXPECT_EQ(form.BasisText.text(), "9,999,999.99");
  EXPECT_TRUE(typeInto(form.BasisText, ""));
  EXPECT_TRUE(typeInto(form.SalvageText, ""));
  EXPECT_EQ(record().AssetBasis(), Currency());
  EXPECT_EQ(form.SalvageText.text(), "");
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(EntryFields, BasisOutOfRangeIsRefused) {
  typeInto(form.BasisText, "200");
  typeInto(form.SalvageText, "150");
  const std::pair<std::string, std::string> cases[] = {
      {"-5", "The basis must be a positive number."},
      {"0", "The basis must be greater than 0."},
      {"10000000", "The basis must be less than 10,000,000."},
      {"100", "The basis of the asset must be greater than the salvage value."},
  };
  for (const auto& [text, message] : cases) {
    EXPECT_FALSE(pasteInto(form.BasisText, text));
    EXPECT_THAT(boxes(), ElementsAre("Basis | " + message)) << text;
    EXPECT_EQ(form.BasisText.text(), "");
    EXPECT_TRUE(form.BasisText.hasFocus());
    EXPECT_EQ(record().AssetBasis(), Currency::fromText("200"));
  }
  EXPECT_TRUE(typeInto(form.BasisText, "150")) << "equal is accepted";
}

TEST_F(EntryFields, SalvageOutOfRangeIsRefused) {
  typeInto(form.BasisText, "100");
  typeInto(form.SalvageText, "50");
  const std::pair<std::string, std::string> cases[] = {
      {"-5", "The salvage value must be a positive number."},
      {"10000000", "The salvage value must be less than 10,000,000."},
      {"150", "The salvage value of the asset must be less than the basis."},
  };
  for (const auto& [text, message] : cases) {
    EXPECT_FALSE(pasteInto(form.SalvageText, text));
    EXPECT_THAT(boxes(), ElementsAre("Salvage Value | " + message)) << text;
    EXPECT_EQ(form.SalvageText.text(), "");
    EXPECT_TRUE(form.SalvageText.hasFocus());
    EXPECT_EQ(record().AssetSalvage(), Currency::fromText("50"));
  }
  EXPECT_TRUE(typeInto(form.SalvageText, "100")) << "equal is accepted";
}

TEST_F(EntryFields, AmountsAreComparedOnlyWhenTheFieldHasChanged) {
  typeInto(form.BasisText, "200");
  typeInto(form.SalvageText, "150");
  // The basis vanishes, the salvage value stands; coming back to it changes nothing.
  typeInto(form.BasisText, "");
  user.moveFocus(form.SalvageText);
  EXPECT_TRUE(leave(form.SalvageText));
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_EQ(record().AssetSalvage(), Currency::fromText("150"));
}

TEST_F(EntryFields, CapacityIsShownAsAWholeNumberAndStoredAsShown) {
  EXPECT_TRUE(typeInto(form.ProdCapText, "12345.6"));
  EXPECT_EQ(form.ProdCapText.text(), "12,346");
  EXPECT_EQ(record().AssetProdCap(), "12346");
  EXPECT_TRUE(typeInto(form.ProdCapText, "0"));
  EXPECT_EQ(form.ProdCapText.text(), "0");
  EXPECT_EQ(record().AssetProdCap(), "0");
  typeInto(form.ProdCapText, "7");
  EXPECT_FALSE(pasteInto(form.ProdCapText, "-1"));
  EXPECT_THAT(boxes(), ElementsAre("Production Capacity | The production capacity must be a "
                                   "positive number."));
  EXPECT_EQ(record().AssetProdCap(), "7");
  EXPECT_TRUE(leave(form.ProdCapText)) << "emptied, it leaves";
  EXPECT_EQ(record().AssetProdCap(), "0");
}

TEST_F(EntryFields, CapacityJustEmptiedStaysMarkedAsChanged) {
  typeInto(form.ProdCapText, "7");
  EXPECT_TRUE(typeInto(form.ProdCapText, ""));
  EXPECT_EQ(record().AssetProdCap(), "0");
  record().AssetProdCap("9");
  user.moveFocus(form.ProdCapText);
  EXPECT_TRUE(leave(form.ProdCapText));
  EXPECT_EQ(record().AssetProdCap(), "0");
  EXPECT_THAT(boxes(), IsEmpty());
}

// --- Convention -------------------------------------------------------------------------------

TEST_F(EntryFields, ConventionIsStoredAsItsDigitWhenTheListIsLeft) {
  const std::string items[] = {"Full Year", "Half Year", "Full Month", "Half Month", "Actual Days"};
  EXPECT_THAT(form.DConvList.items(), ::testing::ElementsAreArray(items));
  for (const int i : {4, 3, 2, 1, 0}) {
    const std::string before = record().DepConvention();
    user.chooseItem(form.DConvList, i);
    EXPECT_EQ(record().DepConvention(), before) << "nothing is stored while choosing";
    EXPECT_TRUE(leave(form.DConvList));
    EXPECT_EQ(record().DepConvention(), std::to_string(i));
  }
}

TEST_F(EntryFields, ConventionThatNobodyChoseAgainIsNotStoredAgain) {
  user.chooseItem(form.DConvList, 3);
  leave(form.DConvList);
  record().DepConvention("1");
  user.moveFocus(form.DConvList);
  leave(form.DConvList);
  EXPECT_EQ(record().DepConvention(), "1");
}

// --- Errors -----------------------------------------------------------------------------------

TEST_F(EntryFields, ReportARunTimeErrorUnderTheirNamesAndLetGo) {
  container.record = nullptr;
  open();
  EXPECT_THAT(reports, ElementsAre("DepCalcCtl::Paint Error#91: Object variable or With block "
                                   "variable not set"));
  reports.clear();
  const std::pair<InputControl*, std::string> fields[] = {
      {&form.IDText, "IDText_Validate"},
      {&form.NameText, "NameText_Validate"},
      {&form.SerialText, "SerialText_Validate"},
      {&form.DeptText, "DeptText_Validate"},
      {&form.StartDateText, "StartDateText_Validate"},
      {&form.FYEndText, "FYEndText_Validate"},
      {&form.DRecoveryText, "DREcoveryText_Validate"},
      {&form.BasisText, "BasisText_Validate"},
      {&form.SalvageText, "SalvageText_Validate"},
      {&form.ProdCapText, "ProdCapText_Validate"}};
  for (const auto& [field, procedure] : fields) {
    SCOPED_TRACE(procedure);
    user.moveFocus(*field);
    user.paste(field == &form.StartDateText || field == &form.FYEndText ? "3/15/2020" : "5");
    reports.clear();
    EXPECT_TRUE(leave(*field));
    EXPECT_THAT(reports, ElementsAre("DepCalcCtl::" + procedure +
                                     " Error#91: Object variable or "
                                     "With block variable not set"));
  }
  EXPECT_EQ(form.BasisText.text(), "5.00") << "a field shows its amount before it stores it";
  EXPECT_EQ(form.SalvageText.text(), "5.00");
  EXPECT_EQ(form.StartDateText.text(), "03/15/2020");
  user.chooseItem(form.DConvList, 2);
  EXPECT_TRUE(leave(form.DConvList));
  EXPECT_THAT(boxes(), IsEmpty());
}

}  // namespace
}  // namespace depcalc
