// Disposals and units produced, entered in the window.
#include <QPushButton>
#include <QTableWidget>

#include "changes/entering_units.h"
#include "desktop/host/stored_companies.h"
#include "tests/desktop/modal_steps.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct AssetChanges : WindowTest {
  AssetChanges() {
    newCompany("joinery", 1);
    saveAssets();
    window.startCalculator();
    settle();
  }

  /// Two by straight line, 1,800.00 a year, and one by units of production, 9.00 a unit.
  void saveAssets() {
    CompanyAssets assets = saved();
    assets.store().open();
    for (const char* method : {"SL", "SL", "UOP"}) {
      const auto asset = std::make_shared<CalculateDep>();
      asset->AssetID(std::string("A-") + method);
      asset->AssetStartDate(Date::strict(2023, 3, 15));
      asset->FYEnd(Date::strict(2023, 12, 31));
      asset->AssetBasis(Currency::fromDouble(10'000));
      asset->AssetSalvage(Currency::fromDouble(1'000));
      asset->AssetProdCap("1000");
      asset->DepRecovery(5);
      asset->DepConvention("1");
      asset->DepMethod(method);
      for (std::int16_t y = 0; y < 6; ++y) {
        asset->DepItem(y, Currency::fromDouble(y == 0 || y == 5 ? 900 : 1'800));
      }
      if (asset->DepMethod() == "UOP") asset->DepItem(0, Currency::fromDouble(9));
      assets.store().DepCalcContSaveRecord(asset);
    }
  }
  CompanyAssets saved() {
    return CompanyAssets(window.company()->file(), Date::strict(2024, 6, 15));
  }
  SavedAsset asset(int number) {
    CompanyAssets assets = saved();
    return savedAsset(assets, number);
  }
  /// The item of the Asset menu; a menu has that name, too.
  void edit() {
    for (QAction* item : window.findChildren<QAction*>()) {
      if (item->shortcut() == QKeySequence(Qt::CTRL | Qt::Key_E)) item->trigger();
    }
    settle();
  }
  void select(int number) { clickCell(0, number); }

  static QString note(QDialog& dialog) { return dialog.findChild<QLabel*>("Note")->text(); }
  static QPushButton& saveButton(QDialog& dialog) {
    for (auto* button : dialog.findChildren<QPushButton*>()) {
      if (button->text().remove(u'&') == QStringLiteral("Save")) return *button;
    }
    ADD_FAILURE() << "no Save";
    return *dialog.findChild<QPushButton*>();
  }
  static void enter(QDialog& dialog, const char* date, const char* proceeds) {
    dialog.findChild<QLineEdit*>("DisposalDate")->setText(date);
    dialog.findChild<QLineEdit*>("Proceeds")->setText(proceeds);
  }
  static std::string effect(QDialog& dialog) {
    return dialog.findChild<QLabel*>("EffectAmounts")->accessibleName().toStdString();
  }
  void dispose(const char* date, const char* proceeds) {
    onDialog([this] { action("Dispose…").trigger(); },
             [&](QDialog& dialog) {
               enter(dialog, date, proceeds);
               saveButton(dialog).click();
             });
  }
  std::vector<bool> enabled() {
    return {action("Dispose…").isEnabled(), action("Undo Disposal").isEnabled(),
            action("Units Produced…").isEnabled()};
  }
};

TEST_F(AssetChanges, AreForTheAssetThatIsSelectedOrShown) {
  ASSERT_EQ(shown(), "DepCalcView1");
  EXPECT_THAT(enabled(), ElementsAre(false, false, false)) << "none is selected";
  select(2);
  EXPECT_THAT(enabled(), ElementsAre(true, false, true));
  dispose("6/30/2025", "6000");
  EXPECT_THAT(enabled(), ElementsAre(true, true, true)) << "it is selected again";
  EXPECT_EQ(calculator().currentAsset(), 2);
  edit();
  ASSERT_EQ(shown(), "DepCalcCtl1");
  EXPECT_THAT(enabled(), ElementsAre(true, true, true));
  action("New").trigger();
  settle();
  EXPECT_THAT(enabled(), ElementsAre(false, false, false)) << "a new asset is not saved";
  window.closeCompany();
  EXPECT_THAT(enabled(), ElementsAre(false, false, false));
}

TEST_F(AssetChanges, SayWhatADisposalComesToBeforeItIsSaved) {
  select(1);
  onDialog([this] { action("Dispose…").trigger(); },
           [&](QDialog& dialog) {
             enter(dialog, "6/30/2025", "6,000");
             EXPECT_EQ(effect(dialog),
                       "Depreciation of FY2025: 900.00; Accumulated depreciation: 3,600.00; Book "
                       "value: 6,400.00; Loss on disposal: 400.00");
             enter(dialog, "06/30/2025", "7000.50");
             EXPECT_THAT(effect(dialog), HasSubstr("Gain on disposal: 600.50"));
             EXPECT_TRUE(saveButton(dialog).isEnabled());
             enter(dialog, "3/14/2023", "");
             EXPECT_THAT(note(dialog).toStdString(), HasSubstr("placed in service on 03/15/2023"));
             EXPECT_EQ(effect(dialog), "");
             EXPECT_FALSE(saveButton(dialog).isEnabled());
             enter(dialog, "6/30/2025", "-1");
             EXPECT_THAT(note(dialog).toStdString(), HasSubstr("0 or more"));
             dialog.reject();
           });
  EXPECT_TRUE(asset(1).disposed.isNone());
  EXPECT_EQ(shown(), "DepCalcView1");
}

TEST_F(AssetChanges, SaveADisposalAndTakeItBack) {
  select(1);
  dispose("6/30/2025", "6000");
  EXPECT_EQ(asset(1).disposed, Date::strict(2025, 6, 30));
  EXPECT_EQ(asset(1).proceeds, Currency::fromDouble(6'000));
  EXPECT_EQ(asset(1).amounts[1], Currency::fromDouble(1'800)) << "the amounts stay";
  EXPECT_TRUE(asset(2).disposed.isNone());
  onDialog([this] { action("Dispose…").trigger(); },
           [&](QDialog& dialog) {
             EXPECT_EQ(dialog.findChild<QLineEdit*>("Proceeds")->text(), "6,000.00");
             EXPECT_EQ(note(dialog), "This replaces the disposal of 06/30/2025.");
             enter(dialog, "12/31/2025", "");
             saveButton(dialog).click();
           });
  EXPECT_EQ(asset(1).disposed, Date::strict(2025, 12, 31));

  boxes.answers = {QMessageBox::No, QMessageBox::Yes};
  action("Undo Disposal").trigger();
  settle();
  EXPECT_FALSE(asset(1).disposed.isNone());
  action("Undo Disposal").trigger();
  settle();
  EXPECT_THAT(boxes.take(), SizeIs(2));
  EXPECT_TRUE(asset(1).disposed.isNone());
  EXPECT_FALSE(action("Undo Disposal").isEnabled());
}

/// What the calculator still had would take the disposal back.
TEST_F(AssetChanges, AreNotWrittenOverByWhatTheCalculatorHad) {
  select(1);
  edit();
  dispose("6/30/2025", "6000");
  select(1);
  edit();
  goTo("NameText");
  fill("Renamed");
  action("Save").trigger();
  settle();
  EXPECT_EQ(asset(1).name, "Renamed");
  EXPECT_EQ(asset(1).disposed, Date::strict(2025, 6, 30));
}

TEST_F(AssetChanges, AskAboutUnsavedChangesFirst) {
  select(1);
  edit();
  goTo("NameText");
  fill("Lathe");
  boxes.answers = {QMessageBox::Cancel};
  action("Dispose…").trigger();
  settle();
  EXPECT_THAT(boxes.take(), SizeIs(1));
  EXPECT_EQ(form().NameText.text(), "Lathe") << "nothing was left";

  bool saved_before = false;
  boxes.answering = false;
  {
    ModalSteps steps;
    steps.thenPress("Yes");
    steps.then([&](QDialog& dialog) {
      saved_before = asset(1).name == "Lathe";
      enter(dialog, "6/30/2025", "1");
      saveButton(dialog).click();
    });
    action("Dispose…").trigger();
    EXPECT_TRUE(steps.done());
  }
  boxes.answering = true;
  settle();
  EXPECT_TRUE(saved_before);
  EXPECT_EQ(asset(1).name, "Lathe");
  EXPECT_EQ(asset(1).proceeds, Currency::fromDouble(1));
}

TEST_F(AssetChanges, EnterUnitsByFiscalYear) {
  select(3);
  onDialog([this] { action("Units Produced…").trigger(); },
           [&](QDialog& dialog) {
             auto& table = *dialog.findChild<QTableWidget*>("Units");
             const auto cell = [&](int row, int column) {
               return table.item(row, column)->text().toStdString();
             };
             EXPECT_EQ(cell(0, 0), "FY2023");
             EXPECT_EQ(cell(0, 3), "1000");
             EXPECT_EQ(table.rowCount(), 6);
             table.item(0, 1)->setText("400");
             table.item(2, 1)->setText("x");
             EXPECT_EQ(note(dialog), "FY2025: The units produced must be a number.");
             EXPECT_FALSE(saveButton(dialog).isEnabled());
             table.item(2, 1)->setText("700");
             EXPECT_EQ(cell(0, 2), "3,600.00");
             EXPECT_EQ(cell(2, 2), "5,400.00") << "no more than is left above salvage";
             EXPECT_EQ(cell(1, 2), "");
             EXPECT_EQ(cell(2, 3), "-100");
             EXPECT_THAT(note(dialog).toStdString(), HasSubstr("more units than"));
             saveButton(dialog).click();
           });
  EXPECT_EQ(asset(3).units, (UnitsByYear{{2023, 400}, {2025, 700}}));
  onDialog([this] { action("Units Produced…").trigger(); },
           [&](QDialog& dialog) {
             auto& table = *dialog.findChild<QTableWidget*>("Units");
             EXPECT_EQ(table.item(2, 1)->text(), "700");
             table.item(2, 1)->setText("");
             saveButton(dialog).click();
           });
  EXPECT_EQ(asset(3).units, (UnitsByYear{{2023, 400}}));
}

TEST_F(AssetChanges, RefuseUnitsOfAnotherMethodWhereTheUserLooks) {
  select(1);
  action("Units Produced…").trigger();
  settle();
  EXPECT_THAT(boxes.take(), ElementsAre(HasSubstr("depreciated by Straight Line")));
}

TEST_F(AssetChanges, MoveUnitsWithTheirAssetsWhenOneIsDeletedAndKnowACorrectedOne) {
  CompanyAssets assets = saved();
  ASSERT_EQ(saveUnits(assets, 3, {{2023, 400}}), std::nullopt);
  select(1);
  boxes.answers = {QMessageBox::Yes};
  action("Delete").trigger();
  settle();
  (void)boxes.take();
  ASSERT_EQ(calculator().assetCount(), 2);
  EXPECT_EQ(asset(2).units, (UnitsByYear{{2023, 400}}));
  EXPECT_THAT(asset(1).units, IsEmpty());

  select(2);
  edit();
  goTo("IDText");
  fill("B-1");
  action("Save").trigger();
  settle();
  (void)boxes.take();
  EXPECT_EQ(asset(2).id, "B-1");
  EXPECT_EQ(asset(2).units, (UnitsByYear{{2023, 400}}));
}

}  // namespace
}  // namespace depcalc::testing
