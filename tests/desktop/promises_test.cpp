// What the host promises: every rule of every field by keyboard, dialogs, what is remembered, names
// for assistive tools on every screen.
#include <QAccessible>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QMenuBar>

#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Promises : WindowTest {
  Promises() { newCompany(); }
};

// A field's rules -------------------------------------------------------------------------------

TEST_F(Promises, EveryRejectionOfAFieldIsReachedByKeyboardAndKeepsTheFocus) {
  const struct {
    const char* field;
    const char* typed;
    const char* says;
    std::pair<const char*, const char*> before = {"", ""};
  } cases[] = {
      {"StartDateText", "13/45/2020", "Placed-in-service Date | Please enter a valid date."},
      {"StartDateText", "6/16/2074",
       "Placed-in-service Date | Please enter a date less than 50 years from today."},
      {"StartDateText", "6/14/1974",
       "Placed-in-service Date | Please enter a date less than 50 years ago."},
      {"DRecoveryText", "x", "Useful Life | Please enter a valid number."},
      {"DRecoveryText", "0.6", "Useful Life | The useful life must be a positive number."},
      {"DRecoveryText", "50.01", "Useful Life | Please enter a number less than or equal to 50."},
      {"BasisText", ".", "Basis | Please enter a valid number."},
      {"BasisText", "0", "Basis | The basis must be greater than 0."},
      {"BasisText", "10000000", "Basis | The basis must be less than 10,000,000."},
      {"BasisText",
       "100",
       "Basis | The basis of the asset must be greater than the salvage value.",
       {"SalvageText", "150"}},
      {"SalvageText", "-", "Salvage Value | Please enter a valid number."},
      {"SalvageText",
       "10000000",
       "Salvage Value | The salvage value must be less than 10,000,000.",
       {"SalvageText", ""}},
      {"SalvageText",
       "101",
       "Salvage Value | The salvage value of the asset must be less than the basis.",
       {"BasisText", "100"}},
      {"ProdCapText", "x", "Production Capacity | Please enter a valid number."},
  };
  for (const auto& [field, typed, says, before] : cases) {
    if (*before.first != '\0') {
      goTo(before.first);
      fill(before.second);
    }
    goTo(field);
    // What is no number is refused at once, the rest when the field is left.
    const bool at_once = std::string_view(typed).size() == 1 && *typed != '0';
    at_once ? type(typed) : fill(typed);
    EXPECT_THAT(boxes.take(), ElementsAre(says));
    EXPECT_EQ(focused(), field);
    EXPECT_TRUE(widget(*calculator().stage().focused()).hasFocus()) << field;
    EXPECT_EQ(dynamic_cast<TextBox&>(*form().child(field)).text(), "");
  }
}

/// A minus alone is refused while it is typed: negative amounts can only be pasted.
TEST_F(Promises, PastedAmountsAreCheckedToo) {
  const std::pair<const char*, const char*> cases[] = {
      {"DRecoveryText", "Useful Life | The useful life must be a positive number."},
      {"BasisText", "Basis | The basis must be a positive number."},
      {"SalvageText", "Salvage Value | The salvage value must be a positive number."},
      {"ProdCapText", "Production Capacity | The production capacity must be a positive number."}};
  for (const auto& [field, says] : cases) {
    goTo(field);
    dynamic_cast<QLineEdit&>(widget(*calculator().stage().focused())).selectAll();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
    QApplication::clipboard()->setText(QStringLiteral("-5"));
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(boxes.take(), IsEmpty());
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_THAT(boxes.take(), ElementsAre(says));
    EXPECT_EQ(focused(), field);
  }
}

TEST_F(Promises, WhatFieldsAcceptIsShownAsTheyShowIt) {
  const std::array<const char*, 3> cases[] = {
      {"StartDateText", "03152020", "03/15/2020"}, {"StartDateText", "3.15.2020", "03/15/2020"},
      {"StartDateText", "3/15", "03/15/2024"},     {"DRecoveryText", "2.5", "2"},
      {"BasisText", "9999999.99", "9,999,999.99"}, {"SalvageText", "0", "0.00"},
      {"ProdCapText", "12345.6", "12,346"}};
  for (const auto& [field, typed, shows] : cases) {
    goTo(field);
    fill(typed);
    goTo("IDText");
    EXPECT_THAT(boxes.take(), IsEmpty()) << field;
    EXPECT_EQ(dynamic_cast<TextBox&>(*form().child(field)).text(), shows);
  }
}

TEST_F(Promises, NoBoxMenuDialogOrOtherWindowValidatesAField) {
  goTo("StartDateText");
  type("13/45/2020");
  QWidget other;
  other.show();
  other.activateWindow();
  QApplication::processEvents();
  other.close();
  window.activateWindow();
  settle();
  QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
  if (QWidget* menu = QApplication::activePopupWidget()) QTest::keyClick(menu, Qt::Key_Escape);
  // The first leaves the menu, the second the bar, where F1 would open the guide.
  QTest::keyClick(window.menuBar(), Qt::Key_Escape);
  onDialog([this] { action("Company Info…").trigger(); }, [](QDialog&) {});
  onDialog([this] { action("About").trigger(); }, [](QDialog&) {});
  key(Qt::Key_F1);
  key(Qt::Key_Escape);
  EXPECT_THAT(boxes.take(), IsEmpty());
  EXPECT_EQ(form().StartDateText.text(), "13/45/2020");
  EXPECT_EQ(focused(), "StartDateText");
  key(Qt::Key_Tab);
  EXPECT_EQ(boxes.take().size(), 1U) << "leaving the field does";
}

TEST_F(Promises, TheQuestionAboutChangesIsAnsweredByKeyboard) {
  const std::string question =
      "Save Changes | You have not saved your changes to this asset. Would you like to save them "
      "now?";
  enterTruck();
  boxes.answers = {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Yes};
  key(Qt::Key_V, Qt::AltModifier);
  EXPECT_THAT(boxes.take(), ElementsAre(question));
  EXPECT_EQ(shown(), "DepCalcCtl1") << "cancelled";
  EXPECT_EQ(form().IDText.text(), "TRK-014");
  key(Qt::Key_N, Qt::AltModifier);
  EXPECT_THAT(boxes.take(), ElementsAre(question));
  EXPECT_EQ(form().IDText.text(), "") << "not saved";
  enterTruck();
  key(Qt::Key_V, Qt::AltModifier);
  EXPECT_THAT(boxes.take(), ElementsAre(question));
  EXPECT_EQ(shown(), "DepCalcView1");
  EXPECT_EQ(assets().AssetViewTable.columns(), 2) << "saved";
}

// Dialogs, menus, what is remembered --------------------------------------------------------------

TEST_F(Promises, ABackupIsRestoredByKeyboard) {
  action("Restore Backup…").trigger();
  EXPECT_EQ(boxes.take().size(), 1U) << "there is none yet";
  window.closeCompany();
  for (const char* content : {"first", "second"}) {
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("SQLite format 3: ") + content);
    file.close();
    ASSERT_TRUE(backups.setAside(path()));
    backups.keep(path(), QDateTime(QDate(2024, 1, 1), QTime(*content == 'f' ? 8 : 9, 0)));
  }
  ASSERT_TRUE(window.openCompany(path()));
  onDialog([this] { action("Restore Backup…").trigger(); },
           [](QDialog& dialog) {
             auto* const list = dialog.findChild<QListWidget*>();
             ASSERT_EQ(list->count(), 2);
             EXPECT_TRUE(list->item(1)->text().startsWith("January 1, 2024, 08:00:00"));
             list->setFocus();
             QTest::keyClick(list, Qt::Key_Down);
             QTest::keyClick(list, Qt::Key_Return);
           });
  EXPECT_THAT(boxes.take(), IsEmpty());
  QFile file(path());
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll().toStdString(), "SQLite format 3: first");
}

TEST_F(Promises, MenusHaveWhatTheTextsSayTheyHave) {
  const std::pair<const char*, std::vector<std::string>> menus[] = {
      {"File",
       {"New Company…", "Open Company…", "Open from Server…", "Recent Companies", "Close Company",
        "Save a Copy As…", "Restore Backup…", "Import…", "Switch to Multi-user Mode",
        "Switch to Single-user Mode", "Print…", "Print Preview…", "Quit"}},
      {"Edit",
       {"Undo", "Redo", "History…", "Copy", "Copy Whole Table", "Find Asset", "Preferences…"}},
      {"Company", {"Company Info…", "Recalculate All Assets…", "Depreciation Calculator"}},
      {"Asset",
       {"New", "Edit", "Delete", "Calculate", "Save", "Dispose…", "Undo Disposal",
        "Units Produced…"}},
      {"Reports",
       {"Depreciation Schedule…", "All Fiscal Years…", "Roll-forward…", "Journal Entry…",
        "Asset Card…", "Register Check…"}},
      {"View",
       {"Fit Width", "Zoom", "Zoom In", "Zoom Out", "Actual Size", "Assets", "Insight", "Toolbar",
        "Next Part", "Previous Part"}},
      {"Help",
       {"Guide", "Open the Sample Company", "Using This Calculator",
        "Comparing depreciation methods", "Entering assets without comparing methods",
        "Recalculating depreciation expense", "Printing the asset record", "Deleting a record",
        "About"}}};
  const QList<QAction*> found = window.menuBar()->actions();
  ASSERT_EQ(found.size(), std::ssize(menus));
  for (int i = 0; i < found.size(); ++i) {
    std::vector<std::string> texts;
    for (const QAction* item : found[i]->menu()->actions()) {
      if (!item->isSeparator()) texts.push_back(item->text().remove(u'&').toStdString());
    }
    EXPECT_EQ(found[i]->text().remove(u'&').toStdString(), menus[i].first);
    EXPECT_EQ(texts, menus[i].second);
  }
}

TEST_F(Promises, TheWindowComesBackWhereItWasWithWhatItHad) {
  window.setGeometry(40, 30, 700, 500);
  window.setZoom(150);
  settle();
  window.close();
  desktop::Settings remembered{directory.filePath("settings.ini")};
  EXPECT_EQ(remembered.lastCompany(), path());
  desktop::MainWindow again(
      {companies, remembered, backups, [] { return Date::strict(2024, 6, 15); }, "/start"});
  EXPECT_EQ(again.size(), QSize(700, 500));
  EXPECT_EQ(remembered.zoom(), 150);
}

// Names for assistive tools -----------------------------------------------------------------------

/// Of what the toolkit itself draws around the controls.
bool needsNoName(const QAccessibleInterface& at) {
  switch (at.role()) {
    case QAccessible::ScrollBar:
    case QAccessible::Cell:
    case QAccessible::Separator:
    case QAccessible::StatusBar:
    case QAccessible::MenuBar:
    case QAccessible::Grip:
      return true;
    // A container of the toolkit's is no control.
    case QAccessible::Client:
      return at.object() != nullptr && at.object()->metaObject()->className()[0] == 'Q';
    case QAccessible::Pane:
    case QAccessible::Grouping:
      return at.object() == nullptr || at.object()->objectName().startsWith("qt_") ||
             qobject_cast<const QDialogButtonBox*>(at.object()) != nullptr;
    case QAccessible::StaticText:
      return qobject_cast<const QLabel*>(at.object()) != nullptr;
    default:
      return false;
  }
}

void collectNameless(QAccessibleInterface& at, const QString& path,
                     std::vector<std::string>& nameless, int& visited) {
  const QString here = path + u'/' + (at.object() ? at.object()->objectName() : QString());
  ++visited;
  if (at.text(QAccessible::Name).trimmed().isEmpty() && !needsNoName(at)) {
    nameless.push_back(here.toStdString() + " role " + std::to_string(at.role()));
  }
  for (int i = 0; i < at.childCount(); ++i) {
    if (QAccessibleInterface* const child = at.child(i)) {
      collectNameless(*child, here, nameless, visited);
    }
  }
}

void expectNames(QWidget& top, int at_least) {
  std::vector<std::string> nameless;
  int visited = 0;
  collectNameless(*QAccessible::queryAccessibleInterface(&top), {}, nameless, visited);
  EXPECT_THAT(nameless, IsEmpty());
  EXPECT_GE(visited, at_least);
}

TEST_F(Promises, EveryScreenAndPopupHasNamesForAssistiveTools) {
  expectNames(window, 100);
  key(Qt::Key_F1);
  key(Qt::Key_U, Qt::AltModifier);
  action("Deleting a record").trigger();
  settle();
  ASSERT_TRUE(screen<DepCalcPopup>("DepCalcPopup2").isShown());
  expectNames(window, 100);
  key(Qt::Key_Escape);
  key(Qt::Key_Escape);
  compareTruck();
  expectNames(window, 100);
  key(Qt::Key_S, Qt::AltModifier);
  ASSERT_EQ(shown(), "DepCalcView1");
  expectNames(window, 100);
  action("Switch to Multi-user Mode").trigger();
  expectNames(window, 40);
  window.closeCompany();
  expectNames(window, 40);
}

TEST_F(Promises, WhatStandsAroundThePageHasNamesForAssistiveTools) {
  saveTruck();
  action("Find Asset").trigger();
  settle();
  expectNames(window, 120);
}

TEST_F(Promises, NoMnemonicOfAMenuIsTakenTwice) {
  for (const QAction* menu : window.menuBar()->actions()) {
    std::map<QString, std::string> taken;
    for (const QAction* item : menu->menu()->actions()) {
      const QString letter = QKeySequence::mnemonic(item->text()).toString();
      if (letter.isEmpty() || !item->isVisible()) continue;
      const std::string text = item->text().toStdString();
      EXPECT_TRUE(taken.try_emplace(letter, text).second) << text << " and " << taken[letter];
    }
  }
}

TEST_F(Promises, TheReportsWindowHasNamesForAssistiveTools) {
  saveTruck();
  for (const char* item : {"Depreciation Schedule…", "Asset Card…"}) {
    action(item).trigger();
    settle();
    auto* const reports = window.findChild<QWidget*>("ReportsWindow");
    ASSERT_NE(reports, nullptr);
    expectNames(*reports, 20);
  }
}

TEST_F(Promises, OnlyARegisterWithAssetsCanBePrinted) {
  const auto printable = [this] {
    return std::pair(action("Print…").isEnabled(), action("Print Preview…").isEnabled());
  };
  EXPECT_EQ(printable(), std::pair(false, false));
  saveTruck();
  EXPECT_EQ(printable(), std::pair(true, true));
  key(Qt::Key_N, Qt::AltModifier);
  ASSERT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(printable(), std::pair(true, true)) << "whatever screen shows";
  key(Qt::Key_V, Qt::AltModifier);
  clickCell(1, 1);
  boxes.answers = {QMessageBox::Yes};
  key(Qt::Key_D, Qt::AltModifier);
  EXPECT_EQ(boxes.take().size(), 1U);
  EXPECT_EQ(printable(), std::pair(false, false));
}

TEST_F(Promises, EveryDialogHasNamesForAssistiveTools) {
  saveTruck();
  for (const char* name : {"Company Info…", "Print Preview…", "About", "Preferences…"}) {
    onDialog([&] { action(name).trigger(); }, [](QDialog& dialog) { expectNames(dialog, 3); });
  }
  key(Qt::Key_Left);  // the captions: nothing is selected
  onDialog([this] { key(Qt::Key_E, Qt::AltModifier); }, [](QDialog& box) { expectNames(box, 2); });
  QFile file(path());
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("SQLite format 3");
  file.close();
  ASSERT_TRUE(backups.setAside(path()));
  backups.keep(path(), QDateTime(QDate(2024, 1, 1), QTime(8, 0)));
  onDialog([this] { action("Restore Backup…").trigger(); },
           [](QDialog& dialog) { expectNames(dialog, 5); });
}

}  // namespace
}  // namespace depcalc::testing
