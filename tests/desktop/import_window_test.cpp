// File > Import, in the window.
#include <QCheckBox>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QPushButton>
#include <QSpinBox>

#include "DepCalc/company_assets.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* german =
    "Anlagen-Nr.;Bezeichnung;Anschaffungsdatum;Nutzungsdauer;AHK;Restwert;Methode\r\n"
    "1001;B\xFCrotisch;15.03.2023;13;1.278,60;0,00;linear\r\n"
    "1002;Lieferwagen;01.04.2022;60;38.450,00;4.000,00;linear\r\n";

struct ImportWindow : WindowTest {
  ImportWindow() { newCompany("joinery", 1); }

  QString file(const char* name, const QByteArray& bytes) {
    const QString at = directory.filePath(name);
    QFile written(at);
    EXPECT_TRUE(written.open(QIODevice::WriteOnly));
    written.write(bytes);
    return at;
  }
  static void waitUntilRead(QDialog& dialog) {
    const auto* const summary = dialog.findChild<QLabel*>("Summary");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !summary->text().startsWith("Reading"); }));
  }
  static std::string textOf(QDialog& dialog, const char* label) {
    return dialog.findChild<QLabel*>(label)->text().toStdString();
  }
  static QAbstractItemModel& rowsOf(QDialog& dialog) {
    return *dialog.findChild<QTableView*>("Rows")->model();
  }
  static QStringList column(QDialog& dialog, const char* table, int column) {
    const QAbstractItemModel& model = *dialog.findChild<QTableView*>(table)->model();
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row) {
      texts << model.index(row, column).data().toString();
    }
    return texts;
  }
  static QPushButton& importButton(QDialog& dialog) {
    for (auto* button : dialog.findChildren<QPushButton*>()) {
      if (button->text().startsWith(QStringLiteral("&Import"))) return *button;
    }
    ADD_FAILURE() << "no Import";
    return *dialog.findChild<QPushButton*>();
  }
  static void choose(QDialog& dialog, const char* list, int index) {
    auto& box = *dialog.findChild<QComboBox*>(list);
    box.setCurrentIndex(index);
    emit box.activated(index);
    waitUntilRead(dialog);
  }
  /// Takes column `row` of the file as `use`, through the list in its cell.
  static void take(QDialog& dialog, int row, const char* use) {
    auto& columns = *dialog.findChild<QTableView*>("Columns");
    columns.setCurrentIndex(columns.model()->index(row, 1));
    columns.edit(columns.currentIndex());
    auto* const list = columns.findChild<QComboBox*>();
    ASSERT_NE(list, nullptr);
    list->setCurrentIndex(list->findText(use));
    emit list->activated(list->currentIndex());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    waitUntilRead(dialog);
  }
  void onImport(const QString& path, const std::function<void(QDialog&)>& look) {
    onDialog([&] { window.importFile(path); },
             [&](QDialog& dialog) {
               waitUntilRead(dialog);
               look(dialog);
             });
  }
  CompanyAssets saved() { return {window.company()->file(), Date::strict(2024, 6, 15)}; }
};

TEST_F(ImportWindow, ShowsEveryRowWithItsProblemAndImportsOnceItIsCorrected) {
  onImport(file("anlagen.csv", german), [&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Import anlagen.csv");
    EXPECT_EQ(textOf(dialog, "Summary"), "1 asset ready · 1 with problems");
    EXPECT_EQ(textOf(dialog, "Note"), "Please correct the rows with problems, or leave them out.");
    EXPECT_EQ(
        column(dialog, "Rows", 1),
        QStringList({"Useful life: Please enter a number less than or equal to 50.", "Ready"}));
    EXPECT_FALSE(importButton(dialog).isEnabled());
    auto& view = *dialog.findChild<QTableView*>("Rows");
    EXPECT_EQ(view.currentIndex().data(), "60") << "the first problem";
    EXPECT_TRUE(view.hasFocus());
    QTest::keyClick(&view, Qt::Key_F2);
    auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    editor->setText("6");
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(textOf(dialog, "Summary"), "2 assets ready");
    EXPECT_EQ(importButton(dialog).text(), "&Import 2 Assets");
    QTest::mouseClick(&importButton(dialog), Qt::LeftButton);
  });
  EXPECT_THAT(boxes.take(), IsEmpty());
  EXPECT_EQ(shown(), "DepCalcView1") << "the register shows them";
  EXPECT_EQ(assets().AssetViewTable.columns(), 3);
  CompanyAssets all = saved();
  ASSERT_EQ(all.assetCount(), 2);
  EXPECT_EQ(all.asset(1)->AssetName(), "Bürotisch");
  EXPECT_EQ(all.asset(1)->AssetBasis(), Currency::fromText("1278.6"));
  EXPECT_EQ(all.asset(2)->AssetStartDate(), Date::strict(2022, 4, 1));
  EXPECT_EQ(all.asset(2)->DepRecovery(), 6);
  EXPECT_EQ(all.asset(2)->DepMethod(), "SL");
  EXPECT_EQ(status(1), "2 assets imported");
}  // namespace

TEST_F(ImportWindow, CancelLeavesEverythingAsItIs) {
  desktop::Calculator* const before = window.calculator();
  onImport(file("anlagen.csv", german), [](QDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(window.calculator(), before);
  EXPECT_EQ(saved().assetCount(), 0);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_A);
  EXPECT_EQ(form().IDText.text(), "a");
}  // namespace depcalc::testing

TEST_F(ImportWindow, AsksAboutUnsavedChangesFirst) {
  enterTruck();
  boxes.answers = {QMessageBox::Cancel};
  window.importFile(file("anlagen.csv", german));
  EXPECT_THAT(boxes.take(), ElementsAre(HasSubstr("You have not saved your changes")));
  EXPECT_EQ(form().IDText.text(), "TRK-014");
  EXPECT_EQ(saved().assetCount(), 0);
}

TEST_F(ImportWindow, AsksWhatTheFileLeavesOpen) {
  onImport(file("list.csv", "id,in service,life,cost\n1,03/04/2020,5,100\n"), [](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QComboBox*>("Dates")->currentIndex(), -1);
    EXPECT_THAT(textOf(dialog, "Note"), HasSubstr("\"03/04/2020\" can be read as two days."));
    EXPECT_FALSE(importButton(dialog).isEnabled());
    choose(dialog, "Dates", 1);
    EXPECT_TRUE(importButton(dialog).isEnabled());
    importButton(dialog).click();
  });
  EXPECT_EQ(saved().asset(1)->AssetStartDate(), Date::strict(2020, 4, 3));
}

TEST_F(ImportWindow, EverythingThatWasFoundOutCanBeCorrected) {
  onImport(file("list.csv", "a|b|c|d\nx|15.03.2020|5|1,5\n"), [](QDialog& dialog) {
    EXPECT_EQ(column(dialog, "Columns", 1),
              QStringList({"Not used", "Not used", "Not used", "Not used"}));
    for (const auto& [row, use] :
         {std::pair(1, "Placed in service"), {2, "Useful life"}, {3, "Basis"}}) {
      take(dialog, row, use);
    }
    EXPECT_EQ(column(dialog, "Columns", 1),
              QStringList({"Not used", "Placed in service", "Useful life", "Basis"}));
    EXPECT_EQ(textOf(dialog, "Summary"), "1 asset ready");
    choose(dialog, "Separator", 1);
    EXPECT_EQ(column(dialog, "Columns", 0), QStringList({"a|b|c|d"}));
    choose(dialog, "Separator", 3);
    EXPECT_EQ(column(dialog, "Columns", 0), QStringList({"a", "b", "c", "d"}));
    dialog.findChild<QSpinBox*>("HeaderRow")->setValue(0);
    waitUntilRead(dialog);
    EXPECT_EQ(column(dialog, "Columns", 0),
              QStringList({"Column 1", "Column 2", "Column 3", "Column 4"}));
    choose(dialog, "Encoding", 2);
    EXPECT_FALSE(importButton(dialog).isEnabled());
  });
}

TEST_F(ImportWindow, RemembersWhatColumnsOfAHeaderWereTakenAs) {
  const QString list = file("list.csv", "what;when;years;price\nx;15.03.2020;5;1,5\n");
  onImport(list, [](QDialog& dialog) {
    EXPECT_EQ(column(dialog, "Columns", 1).first(), "Not used");
    for (const auto& [row, use] : {std::pair(0, "Serial number"), {1, "Placed in service"}}) {
      take(dialog, row, use);
    }
    importButton(dialog).click();
  });
  EXPECT_EQ(saved().asset(1)->ASerial(), "x");
  onImport(list, [](QDialog& dialog) {
    EXPECT_EQ(column(dialog, "Columns", 1),
              QStringList({"Serial number", "Placed in service", "Useful life", "Basis"}));
    EXPECT_EQ(textOf(dialog, "Summary"), "0 assets ready · 1 duplicate left out");
  });
}

TEST_F(ImportWindow, DuplicatesAreMarkedAndTheChoiceIsTheUsers) {
  const QString list =
      file("list.csv", "id,in service,life,cost\n1,2020-03-15,5,100\n1,2020-03-15,5,100\n");
  onImport(list, [](QDialog& dialog) {
    EXPECT_EQ(textOf(dialog, "Summary"), "1 asset ready · 1 duplicate left out");
    EXPECT_EQ(column(dialog, "Rows", 1).first(), "Asset ID: Line 2 already has this ID.");
    const QModelIndex box = rowsOf(dialog).index(0, 0);
    EXPECT_EQ(box.data(Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_TRUE(rowsOf(dialog).setData(box, Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(textOf(dialog, "Summary"), "2 assets ready · 1 duplicate among them");
    EXPECT_TRUE(rowsOf(dialog).setData(box, Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(textOf(dialog, "Summary"), "1 asset ready · 1 left out by you");
    choose(dialog, "Filter", 2);
    EXPECT_EQ(rowsOf(dialog).rowCount(), 0);
    dialog.findChild<QCheckBox*>("Duplicates")->click();
  });
}

TEST_F(ImportWindow, TheFilesOwnAmountsStandBesideOurs) {
  const QString list = file("list.csv",
                            "id,in service,life,cost,method,FY2020,FY2021\n"
                            "1,2020-01-01,2,100,SL,50,49.99\n2,2020-01-01,2,100,SL,50,50\n");
  onImport(list, [](QDialog& dialog) {
    EXPECT_EQ(textOf(dialog, "Summary"), "2 assets ready · 1 with amounts that differ");
    EXPECT_EQ(column(dialog, "Rows", 1).first(), "One amount differs from the file's.");
    EXPECT_EQ(column(dialog, "Amounts", 0), QStringList({"50.00", "50.00", "–"}));
    EXPECT_EQ(column(dialog, "Amounts", 1), QStringList({"49.99", "50.00", "-0.01"}));
    choose(dialog, "Filter", 3);
    EXPECT_EQ(rowsOf(dialog).rowCount(), 1);
  });
}

TEST_F(ImportWindow, SaysWhatCannotBeImportedAndWhatToDo) {
  const std::pair<QByteArray, const char*> files[] = {
      {QByteArray("\xD0\xCF\x11\xE0"), "save the sheet as CSV or as Unicode text."},
      {QByteArray("SQLite format 3\0", 16),
       "This is a company file. File > Open Company opens it."},
      {"%PDF-1.4", "This is a PDF document."},
      {"PK\3\4", "This workbook cannot be read."},
  };
  for (const auto& [bytes, says] : files) {
    window.importFile(file("other", bytes));
    EXPECT_THAT(boxes.take(), ElementsAre(HasSubstr(says)));
  }
  window.importFile(directory.filePath("missing.csv"));
  EXPECT_THAT(boxes.take(), ElementsAre(HasSubstr("missing.csv cannot be read:")));
}

TEST_F(ImportWindow, AFileDroppedOnTheWindowIsShown) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(file("anlagen.csv", german))});
  const QPointF middle = window.rect().center();
  QDragEnterEvent enter(middle.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &enter);
  EXPECT_TRUE(enter.isAccepted());
  onDialog(
      [&] {
        QDropEvent drop(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window, &drop);
        EXPECT_TRUE(drop.isAccepted());
        QTest::qWait(300);
      },
      [](QDialog& dialog) { EXPECT_EQ(dialog.windowTitle(), "Import anlagen.csv"); });
  QMimeData text;
  text.setText("no file");
  QDragEnterEvent other(middle.toPoint(), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &other);
  EXPECT_FALSE(other.isAccepted());
}

TEST_F(ImportWindow, IsOfferedWhereThereIsACalculator) {
  EXPECT_TRUE(action("Import…").isEnabled());
  EXPECT_EQ(action("Import…").shortcut(), QKeySequence(Qt::CTRL | Qt::Key_I));
  window.setMultiUser(true);
  EXPECT_FALSE(action("Import…").isEnabled());
  window.setMultiUser(false);
  window.closeCompany();
  EXPECT_FALSE(action("Import…").isEnabled());
}

/// What a dialog says when it comes up; a moment later even a full register may have been read.
class SummaryAtFirst : public QObject {
 public:
  SummaryAtFirst() { qApp->installEventFilter(this); }

  std::string text;

 private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* const dialog = qobject_cast<QDialog*>(watched);
    if (dialog != nullptr && event->type() == QEvent::Show)
      text = ImportWindow::textOf(*dialog, "Summary");
    return false;
  }
};

TEST_F(ImportWindow, AFullRegisterIsShownWhileItIsRead) {
  QByteArray all("id;in service;life;cost\n");
  for (int i = 0; i < 32'766; ++i) all += "A" + QByteArray::number(i) + ";15.03.2020;5;1.250,50\n";
  const QString list = file("big.csv", all);
  const SummaryAtFirst at_first;
  onDialog([&] { window.importFile(list); },
           [&](QDialog& dialog) {
             EXPECT_THAT(at_first.text, StartsWith("Reading"));
             waitUntilRead(dialog);
             EXPECT_EQ(textOf(dialog, "Summary"), "32,766 assets ready");
             EXPECT_EQ(rowsOf(dialog).rowCount(), 32'766);
           });
}

TEST_F(ImportWindow, MnemonicsAreUniqueAndTabReachesEverything) {
  const QString list = file("list.csv", "id,in service,life,cost,FY2020\n1,2020-03-15,5,100,1\n");
  onImport(list, [](QDialog& dialog) {
    QString letters;
    for (auto* label : dialog.findChildren<QLabel*>()) {
      if (label->buddy() != nullptr) letters += label->text().section(u'&', 1).left(1).toUpper();
    }
    for (auto* button : dialog.findChildren<QAbstractButton*>()) {
      letters += button->text().section(u'&', 1).left(1).toUpper();
    }
    for (const QChar letter : letters) EXPECT_EQ(letters.count(letter), 1) << letters.toStdString();
    EXPECT_GE(letters.size(), 11);
    std::vector<std::string> reached;
    QWidget* const first = dialog.findChild<QTableView*>("Rows");
    for (QWidget* at = first->nextInFocusChain(); at != first; at = at->nextInFocusChain()) {
      if (at->focusPolicy() & Qt::TabFocus && at->isEnabled()) {
        reached.push_back(at->objectName().toStdString());
      }
    }
    for (const char* name : {"Encoding", "Separator", "Decimal", "Dates", "HeaderRow", "Method",
                             "Convention", "Columns", "Filter", "Duplicates", "Amounts"}) {
      EXPECT_THAT(reached, ::testing::Contains(name));
    }
  });
}

}  // namespace
}  // namespace depcalc::testing
