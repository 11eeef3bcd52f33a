// The company's fiscal year and the amounts that were saved for another one.
#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>

#include "DepCalc/recalculation.h"
#include "desktop/host/stored_companies.h"
#include "desktop/window/recalculation_dialog.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// "A-1", "A-2", … for fiscal years that end in December, calculated by straight line.
void saveAssets(const std::shared_ptr<HostCompanyFile>& file, int count) {
  CompanyAssets assets(file, Date::strict(2024, 6, 15));
  assets.store().open();
  for (int n = 1; n <= count; ++n) {
    const auto asset = std::make_shared<CalculateDep>();
    asset->AssetID("A-" + std::to_string(n));
    asset->AssetStartDate(Date::strict(2023, 7, 1));
    asset->FYEnd(Date::strict(2023, 12, 31));
    asset->AssetBasis(Currency::fromDouble(1200));
    asset->DepRecovery(2);
    asset->DepConvention("2");
    asset->DepMethod("SL");
    for (std::int16_t y = 0; y < 3; ++y) {
      asset->DepItem(y, Currency::fromDouble(y == 1 ? 600 : 300));
    }
    assets.store().DepCalcContSaveRecord(asset);
  }
}

struct RecalculationWindow : WindowTest {
  /// A company of January whose assets are right.
  void companyWithAssets(int count) {
    newCompany("joinery", 1);
    saveAssets(window.company()->file(), count);
    window.startCalculator();
    settle();
  }
  void changeFirstMonth(int month) {
    CompanyInfo info = window.company()->info();
    info.first_month = month;
    window.changeCompanyInfo(info);
    settle();
  }
  CalculateDepPtr saved(int number) {
    return CompanyAssets(window.company()->file(), Date::strict(2024, 6, 15)).asset(number);
  }
  static QString summaryOf(QDialog& dialog) { return dialog.findChild<QLabel*>("Summary")->text(); }
  static QStringList changesOf(QDialog& dialog) {
    const QAbstractItemModel& model = *dialog.findChild<QTableView*>("Changes")->model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column) {
        cells << model.index(row, column).data().toString();
      }
      rows << cells.join(u' ');
    }
    return rows;
  }
  static QPushButton& saveButton(QDialog& dialog) {
    for (auto* button : dialog.findChildren<QPushButton*>()) {
      if (button->text().remove(u'&') == QStringLiteral("Save")) return *button;
    }
    ADD_FAILURE() << "no Save";
    return *dialog.findChild<QPushButton*>();
  }
};

TEST_F(RecalculationWindow, CompanyInfoReachesTheFormThatIsShowing) {
  newCompany("joinery", 1);
  ASSERT_EQ(form().FYEndText.text(), "January");
  onDialog([this] { action("Company Info…").trigger(); },
           [](QDialog& dialog) {
             dialog.findChild<QComboBox*>("FirstMonth")->setCurrentIndex(3);
             dialog.accept();
           });
  EXPECT_EQ(form().FYEndText.text(), "April");
  enterAsset({"TRK-014", "", "", "", "9/15/2023"});
  key(Qt::Key_S, Qt::AltModifier);
  ASSERT_EQ(shown(), "DepCalcView1");
  EXPECT_EQ(saved(1)->FYEnd(), Date::strict(2024, 3, 31));
}

TEST_F(RecalculationWindow, ANewNameLeavesTheFormAlone) {
  newCompany("joinery", 1);
  fill("A-1");
  desktop::Calculator* const before = window.calculator();
  window.changeCompanyInfo({"Renamed", 1});
  EXPECT_EQ(window.calculator(), before);
  EXPECT_EQ(form().IDText.text(), "A-1");
  EXPECT_EQ(window.company()->info().name, "Renamed");
  EXPECT_THAT(boxes.take(), IsEmpty());
}

TEST_F(RecalculationWindow, CancelKeepsTheFiscalYearAndTheEntry) {
  newCompany("joinery", 1);
  fill("A-1");
  boxes.answers = {QMessageBox::Cancel};
  changeFirstMonth(4);
  EXPECT_THAT(boxes.take(), SizeIs(1));
  EXPECT_EQ(window.company()->info().first_month, 1);
  EXPECT_EQ(form().IDText.text(), "A-1");
}

TEST_F(RecalculationWindow, ANewFiscalYearOffersToCalculateTheAssetsForIt) {
  companyWithAssets(2);
  bool asked = false;
  onDialog([this] { changeFirstMonth(4); },
           [&](QDialog& dialog) {
             asked = dynamic_cast<desktop::RecalculationDialog*>(&dialog) != nullptr;
             EXPECT_TRUE(dialog.findChild<QCheckBox*>("CompanyYear")->isChecked());
             EXPECT_EQ(summaryOf(dialog).toStdString(),
                       "2 assets would get the company's fiscal year. 8 amounts change:");
             EXPECT_EQ(changesOf(dialog).mid(0, 3).join(u'|').toStdString(),
                       "1 A-1 FY2023 300.00 0.00|1 A-1 FY2024 600.00 450.00|"
                       "1 A-1 FY2025 300.00 600.00");
             saveButton(dialog).click();
           });
  EXPECT_TRUE(asked);
  EXPECT_EQ(saved(2)->FYEnd(), Date::strict(2024, 3, 31));
  EXPECT_EQ(saved(2)->DepItem(0), Currency::fromDouble(450));
  EXPECT_EQ(shown(), "DepCalcView1") << "the calculator was started anew";
  EXPECT_THAT(boxes.take(), IsEmpty());
}

TEST_F(RecalculationWindow, CancellingTheOfferLeavesTheAssetsAsTheyAre) {
  companyWithAssets(1);
  onDialog([this] { changeFirstMonth(4); }, [](QDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(window.company()->info().first_month, 4);
  EXPECT_EQ(saved(1)->FYEnd(), Date::strict(2023, 12, 31));
  EXPECT_EQ(saved(1)->DepItem(1), Currency::fromDouble(600));
}

TEST_F(RecalculationWindow, NothingIsOfferedWhereNoAssetHasAnotherFiscalYear) {
  companyWithAssets(1);
  onDialog([this] { changeFirstMonth(4); }, [](QDialog& dialog) { dialog.reject(); });
  changeFirstMonth(1);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(RecalculationWindow, TheMenuListsWhatWouldChangeAndWhatIsLeft) {
  newCompany("joinery", 1);
  EXPECT_FALSE(action("Recalculate All Assets…").isEnabled());
  saveAssets(window.company()->file(), 2);
  const auto record = window.company()->file()->OpenTable(asset_table_name)->Item(1);
  record->Fields().SetValue("ABasis", StoredValue::currency(Currency()));
  record->Modified(true);
  record->Commit();
  window.startCalculator();
  settle();
  onDialog([this] { action("Recalculate All Assets…").trigger(); },
           [](QDialog& dialog) {
             EXPECT_TRUE(dialog.findChild<QCheckBox*>("CompanyYear")->isHidden());
             EXPECT_EQ(summaryOf(dialog).toStdString(),
                       "All amounts are correct. There is nothing to save.");
             EXPECT_FALSE(saveButton(dialog).isEnabled());
             const auto& left = *dialog.findChild<QListWidget*>("LeftAssets");
             ASSERT_EQ(left.count(), 1);
             EXPECT_EQ(left.item(0)->text().toStdString(), "1  A-1: Please enter the basis.");
           });
}

/// With files: what is kept first is the company as it was just before, whatever was changed since
/// it was opened.
TEST(RecalculationOfAFile, KeepsABackupOfTheCompanyAsItIs) {
  const QTemporaryDir directory;
  const auto today = [] { return Date::strict(2024, 6, 15); };
  desktop::StoredCompanies files(today);
  desktop::Settings settings{directory.filePath("settings.ini")};
  desktop::Backups backups{directory.filePath("backups")};
  desktop::MainWindow window({files, settings, backups, today, "/start"});
  const QString path = directory.filePath("joinery.company");
  window.show();
  ASSERT_TRUE(window.createCompany(path, {"Sample Joinery", 1}));
  saveAssets(window.company()->file(), 3);
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
      ASSERT_NE(dynamic_cast<desktop::RecalculationDialog*>(dialog), nullptr)
          << dialog->windowTitle().toStdString();
      dialog->accept();
    }
  });
  timer.start(20);
  window.changeCompanyInfo({"Sample Joinery", 4});
  CompanyAssets now(window.company()->file(), today());
  EXPECT_EQ(now.asset(3)->FYEnd(), Date::strict(2024, 3, 31));
  window.closeCompany();

  ASSERT_FALSE(backups.of(path).isEmpty());
  const auto backup = files.open(backups.of(path).front().path.toStdString());
  CompanyAssets before(backup->file(), today());
  ASSERT_EQ(before.assetCount(), 3);
  EXPECT_EQ(before.asset(3)->FYEnd(), Date::strict(2023, 12, 31));
  EXPECT_EQ(before.asset(3)->DepItem(1), Currency::fromDouble(600));
  backup->close();
}

}  // namespace
}  // namespace depcalc::testing
