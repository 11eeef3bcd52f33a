// Undo, redo and the history, in the window.
#include <QPushButton>
#include <QTreeWidget>

#include "DepCalc/asset_store.h"
#include "changes/step_lines.h"
#include "tests/desktop/modal_steps.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct UndoInTheWindow : WindowTest {
  static constexpr int saved_label = 3;

  UndoInTheWindow() { newCompany("joinery", 1); }

  static QAction& itemOf(desktop::MainWindow& of, const QKeySequence& key) {
    for (QAction* found : of.findChildren<QAction*>()) {
      if (found->shortcuts().contains(key)) return *found;
    }
    ADD_FAILURE() << key.toString().toStdString();
    return *of.findChild<QAction*>();
  }
  QAction& undo() { return itemOf(window, QKeySequence(Qt::CTRL | Qt::Key_Z)); }
  QAction& redo() { return itemOf(window, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)); }
  void trigger(QAction& action) {
    action.trigger();
    settle();
  }
  int count() { return calculator().assetCount().value_or(-1); }
  std::string text(const QAction& action) { return action.text().remove(u'&').toStdString(); }
  /// The form, with something in it that was not saved.
  void enterSomething() {
    itemOf(window, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N)).trigger();
    settle();
    goTo("IDText");
    type("NEW");
  }
};

TEST_F(UndoInTheWindow, NamesWhatItUndoesAndShowsTheRegisterAfterwards) {
  EXPECT_FALSE(undo().isEnabled());
  EXPECT_EQ(text(undo()), "Undo");
  saveTruck();
  EXPECT_EQ(text(undo()), "Undo Save of TRK-014");
  EXPECT_EQ(undo().iconText(), "Undo Save");
  EXPECT_FALSE(redo().isEnabled());
  EXPECT_EQ(status(saved_label), "Saved 1 change   ·   Undo available   ·   ");
  trigger(undo());
  EXPECT_EQ(status(saved_label), "");
  EXPECT_EQ(count(), 0);
  EXPECT_FALSE(undo().isEnabled());
  EXPECT_EQ(text(redo()), "Redo Save of TRK-014");
  trigger(redo());
  EXPECT_EQ(count(), 1);
  EXPECT_EQ(shown(), "DepCalcView1");
  EXPECT_EQ(assets().AssetViewTable.text(0, 1), "TRK-014");
}

TEST_F(UndoInTheWindow, AsksAboutUnsavedChangesFirst) {
  saveTruck();
  struct Case {
    QMessageBox::StandardButton answer;
    int assets;
    bool still_there;  ///< what was typed
  };
  for (const Case& each : std::vector<Case>{{QMessageBox::Cancel, 1, true},
                                            {QMessageBox::No, 0, false},
                                            {QMessageBox::Yes, 2, false}}) {
    if (count() == 0) trigger(redo());
    if (shown() == "DepCalcView1") enterSomething();
    boxes.answers = {each.answer};
    trigger(undo());
    EXPECT_THAT(boxes.take(), Contains(HasSubstr("You have not saved your changes")));
    EXPECT_EQ(count(), each.assets);
    EXPECT_EQ(shown() == "DepCalcCtl1" && form().IDText.text() == "NEW", each.still_there);
  }
  // What was saved on the way is what is undone next.
  EXPECT_EQ(text(undo()), "Undo Save of NEW");
}

TEST_F(UndoInTheWindow, IsTheFieldsOwnWhereOneHasTheKeys) {
  saveTruck();
  enterSomething();
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_NE(form().IDText.text(), "NEW");
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(count(), 1);
  EXPECT_THAT(boxes.take(), IsEmpty());
}

TEST_F(UndoInTheWindow, UndoesWhatTheHostChanges) {
  saveTruck();
  window.changeCompanyInfo({"Renamed", 1, false});
  settle();
  EXPECT_EQ(text(undo()), "Undo Company Info");
  trigger(undo());
  EXPECT_EQ(window.company()->info().name, "Sample Joinery");
  trigger(redo());
  EXPECT_EQ(window.company()->info().name, "Renamed");
  window.setMultiUser(true);
  settle();
  EXPECT_EQ(window.calculator(), nullptr);
  trigger(undo());
  ASSERT_NE(window.calculator(), nullptr) << "back in single-user mode";
  EXPECT_EQ(count(), 1);
}

TEST_F(UndoInTheWindow, IsThereAfterTheNextStart) {
  saveTruck();
  ASSERT_TRUE(window.close());
  desktop::MainWindow again(
      {companies, settings, backups, [] { return Date::strict(2024, 6, 15); }, "/start"});
  ASSERT_TRUE(again.openCompany(path()));
  QAction& undo_again = itemOf(again, QKeySequence(Qt::CTRL | Qt::Key_Z));
  EXPECT_EQ(text(undo_again), "Undo Save of TRK-014");
  undo_again.trigger();
  EXPECT_EQ(again.calculator()->assetCount(), 0);
}

TEST_F(UndoInTheWindow, SaysQuietlyWhyNothingCanBeUndone) {
  saveTruck();
  window.closeCompany();
  settle();
  const auto file = companies.companies.at(path().toStdString()).file;
  file->reopen();
  const auto record = file->OpenTable(asset_table_name)->Item(1);
  record->Fields().SetValue("AName", StoredValue::text("elsewhere"));
  record->Modified(true);
  record->Commit();
  file->close();
  ASSERT_TRUE(window.openCompany(path()));
  EXPECT_FALSE(undo().isEnabled());
  EXPECT_EQ(text(undo()), "Undo (the company was changed elsewhere)");
  EXPECT_THAT(boxes.take(), IsEmpty());
}

TEST_F(UndoInTheWindow, DoesNotTakeAnotherCompanyOfTheSamePathForThisOne) {
  saveTruck();
  window.closeCompany();
  newCompany("joinery", 1);
  EXPECT_EQ(text(undo()), "Undo");
}

TEST_F(UndoInTheWindow, SaysWhereTheHistoryCannotBeWritten) {
  QFile::remove(backups.historyOf(path()));
  ASSERT_TRUE(QDir().mkpath(backups.historyOf(path()) + "/in the way"));
  saveTruck();
  EXPECT_TRUE(status(saved_label).contains("Undo ends when the company is closed"))
      << status(saved_label).toStdString();
  trigger(undo());
  EXPECT_EQ(count(), 0);
}

TEST_F(UndoInTheWindow, ListsTheStepsAndWhatTheyChanged) {
  saveTruck();
  window.changeCompanyInfo({"Renamed", 1, false});
  settle();
  onDialog([this] { action("History…").trigger(); },
           [](QDialog& dialog) {
             auto& steps = *dialog.findChild<QTreeWidget*>("Steps");
             auto& values = *dialog.findChild<QTableView*>("Values");
             const auto step = [&](int row, int column) {
               return steps.topLevelItem(row)->text(column).toStdString();
             };
             const auto value = [&](int row, int column) {
               return values.model()->index(row, column).data().toString().toStdString();
             };
             ASSERT_EQ(steps.topLevelItemCount(), 2);
             EXPECT_EQ(step(0, 1), "Company Info");
             EXPECT_EQ(step(0, 2), "◀ current");
             EXPECT_EQ(step(1, 1), "Save of TRK-014");
             EXPECT_THAT((std::vector{value(0, 0), value(0, 1), value(0, 2), value(0, 3)}),
                         ElementsAre("Company", "Name", "Sample Joinery", "Renamed"));
             steps.setCurrentItem(steps.topLevelItem(1));
             EXPECT_THAT((std::vector{value(0, 0), value(0, 1), value(0, 2), value(0, 3)}),
                         ElementsAre("TRK-014", "Asset ID", "", "TRK-014"));
             for (auto* button : dialog.findChildren<QPushButton*>()) {
               if (button->text() == "&Undo") button->click();
             }
             EXPECT_EQ(step(0, 2), "undone");
             EXPECT_EQ(step(1, 2), "◀ current");
           });
  EXPECT_EQ(window.company()->info().name, "Sample Joinery");
}

}  // namespace
}  // namespace depcalc::testing
