// The host's own part: companies, modes, backups, settings, the status bar, mnemonics, names.
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>

#include "controls/picture_button.h"
#include "desktop/preview/preview.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Window = WindowTest;

TEST_F(Window, WithoutACompanyTheCalculatorSaysWhatIsMissing) {
  EXPECT_EQ(status(0), "No company open");
  action("Depreciation Calculator").trigger();
  EXPECT_THAT(boxes.take(),
              ElementsAre("Depreciate Your Assets | You must have a company file open to use this "
                          "feature. Open a company file, then select the Depreciation Calculator "
                          "again."));
  EXPECT_FALSE(action("Company Info…").isEnabled());
  EXPECT_FALSE(action("Print…").isEnabled());
}

TEST_F(Window, TheEmptyPageLeadsOnByKeyboard) {
  newCompany();
  window.closeCompany();
  QFile file(path());
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  boxes.file = path();
  const auto buttons = window.page().findChildren<QPushButton*>();
  ASSERT_EQ(buttons.size(), 3);
  buttons[0]->setFocus();
  key(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), buttons[1]);
  EXPECT_EQ(buttons[1]->text(), "&Open Company…");
  key(Qt::Key_Return);
  QTRY_VERIFY(window.company() != nullptr);
  EXPECT_NE(window.calculator(), nullptr);
}

TEST_F(Window, IsPaintedBeforeACompanyIsOpened) {
  newCompany();
  window.closeCompany();
  desktop::MainWindow fresh(
      {companies, settings, backups, [] { return Date::strict(2024, 6, 15); }, "/start"});
  fresh.openCompanyWhenPainted(path());
  EXPECT_EQ(fresh.company(), nullptr);
  EXPECT_EQ(fresh.statusBar()->findChildren<QLabel*>().at(0)->text(), "Opening joinery…");
  bool painted_without = false;
  struct Watcher : QObject {
    std::function<void()> on_paint;
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) on_paint();
      return false;
    }
  } watcher;
  watcher.on_paint = [&] { painted_without = painted_without || fresh.company() == nullptr; };
  fresh.installEventFilter(&watcher);
  fresh.show();
  QTRY_VERIFY(fresh.company() != nullptr);
  EXPECT_TRUE(painted_without);
  EXPECT_NE(fresh.calculator(), nullptr);
  EXPECT_EQ(fresh.windowTitle(), "Sample Joinery – Depreciation Calculator");
}

TEST_F(Window, NamesThatLookLikeMarkupAreShownAsTheyAre) {
  const QString name = QStringLiteral("<b>Saw</b> & Sons");
  QFile file(path("saw & sons.company"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_TRUE(window.createCompany(file.fileName(), {name.toStdString(), 1}));
  EXPECT_EQ(status(0), name + QStringLiteral(" — single-user mode"));
  action("Switch to Multi-user Mode").trigger();
  auto* const placeholder = window.findChild<QLabel*>("Placeholder");
  ASSERT_NE(placeholder, nullptr);
  EXPECT_TRUE(placeholder->text().startsWith(name));
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
  }
  action("Switch to Single-user Mode").trigger();
  for (QAction* entry : window.menuBar()->actions().at(0)->menu()->actions()) {
    if (entry->menu() == nullptr) continue;
    emit entry->menu()->aboutToShow();
    EXPECT_EQ(entry->menu()->actions().at(0)->text(), "&1 saw && sons");
  }
}

TEST_F(Window, SwitchesModes) {
  newCompany();
  ASSERT_NE(window.calculator(), nullptr);
  action("Switch to Multi-user Mode").trigger();
  EXPECT_EQ(window.calculator(), nullptr);
  EXPECT_EQ(status(0), "Sample Joinery — multi-user mode");
  EXPECT_THAT(boxes.take(), IsEmpty());
  action("Depreciation Calculator").trigger();
  EXPECT_THAT(boxes.take(),
              ElementsAre("Depreciate Your Assets | You must be in single-user mode to use this "
                          "feature. To change modes, choose Switch to Single-user Mode from the "
                          "File menu."));
  action("Switch to Single-user Mode").trigger();
  ASSERT_NE(window.calculator(), nullptr);
  EXPECT_EQ(shown(), "DepCalcCtl1");
}

TEST_F(Window, CompanyInfoChangesNameAndFirstMonth) {
  newCompany();
  QTimer::singleShot(50, [] {
    QWidget* const dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    dialog->findChild<QLineEdit*>("CompanyName")->setText("Renamed");
    dialog->findChild<QComboBox*>("FirstMonth")->setCurrentIndex(9);
    QTest::keyClick(dialog, Qt::Key_Return);
  });
  action("Company Info…").trigger();
  EXPECT_EQ(window.company()->info(), (CompanyInfo{"Renamed", 10}));
  EXPECT_EQ(status(2), "Fiscal year starts in October   ·   0 assets");
}

TEST_F(Window, ACompanyThatCannotBeOpenedIsSaidSo) {
  EXPECT_FALSE(window.openCompany(path("nowhere")));
  EXPECT_THAT(boxes.take(), ElementsAre("Depreciation Calculator | " +
                                        path("nowhere").toStdString() + ": no such company"));
  EXPECT_EQ(window.company(), nullptr);
}

TEST_F(Window, ACompanyStaysOpenAndUnaskedWhereAnotherCannotBeOpened) {
  newCompany("one");
  fill("FIRST");
  EXPECT_FALSE(window.openCompany(path("nowhere")));
  EXPECT_THAT(boxes.take(), ElementsAre("Depreciation Calculator | " +
                                        path("nowhere").toStdString() + ": no such company"));
  ASSERT_NE(window.company(), nullptr);
  EXPECT_EQ(window.company()->path(), path("one").toStdString());
  EXPECT_EQ(form().IDText.text(), "FIRST");
}

TEST_F(Window, EachCompanyGetsACalculatorOfItsOwn) {
  newCompany("one");
  fill("FIRST");
  boxes.answers = {QMessageBox::No};
  newCompany("two");
  EXPECT_EQ(boxes.take().size(), 1U);
  EXPECT_EQ(form().IDText.text(), "");
  EXPECT_EQ(calculator().container().CurrentRecord()->AssetID(), "");
}

TEST_F(Window, ZoomIsKeptWithinItsBoundsAndRemembered) {
  newCompany();
  action("Actual Size").trigger();
  const QSize usual = widget(form().IDText).size();
  for (int i = 0; i < 12; ++i) action("Zoom In").trigger();
  EXPECT_EQ(settings.zoom(), 300);
  EXPECT_EQ(widget(form().IDText).size(), usual * 3);
  for (int i = 0; i < 12; ++i) action("Zoom Out").trigger();
  EXPECT_EQ(settings.zoom(), 75);
  action("Actual Size").trigger();
  EXPECT_EQ(widget(form().IDText).size(), usual);
  EXPECT_EQ(desktop::Settings(directory.filePath("settings.ini")).zoom(), 100);
}

TEST_F(Window, RecentCompaniesAreThoseThatAreStillThere) {
  for (const char* name : {"one", "two", "three"}) {
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    newCompany(name);
  }
  EXPECT_EQ(settings.recent(), (QStringList{path("three"), path("two"), path("one")}));
  QFile::remove(path("two"));
  EXPECT_EQ(settings.recent(), (QStringList{path("three"), path("one")}));
  EXPECT_EQ(settings.lastCompany(), path("three"));
  window.closeCompany();
  EXPECT_EQ(settings.lastCompany(), "");
}

void write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(bytes);
}

QByteArray read(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

TEST_F(Window, ABackupIsKeptBeforeTheFirstChangeOfAnOpening) {
  newCompany();
  window.closeCompany();
  EXPECT_THAT(backups.of(path()), IsEmpty());
  write(path(), "SQLite format 3: as it was");
  ASSERT_TRUE(window.openCompany(path()));
  settle();
  const qsizetype after_opening = backups.of(path()).size();
  fill("A-1");
  while (focused() != "StartDateText") key(Qt::Key_Tab);
  fill("3/1/2024");
  key(Qt::Key_S, Qt::AltModifier);
  ASSERT_EQ(backups.of(path()).size(), after_opening + 1);
  EXPECT_EQ(read(backups.of(path()).front().path), "SQLite format 3: as it was");
  key(Qt::Key_N, Qt::AltModifier);
  fill("A-2");
  while (focused() != "StartDateText") key(Qt::Key_Tab);
  fill("3/1/2024");
  key(Qt::Key_S, Qt::AltModifier);
  EXPECT_EQ(backups.of(path()).size(), after_opening + 1) << "one for each opening";
  write(path(), "SQLite format 3: as it is");
  ASSERT_TRUE(window.restoreBackup(backups.of(path()).front()));
  EXPECT_EQ(read(path()), "SQLite format 3: as it was");
  EXPECT_EQ(read(backups.of(path()).front().path), "SQLite format 3: as it is")
      << "nothing is thrown away";
}

TEST(BackupsTest, KeepTheLastTenOfEachCompany) {
  const QTemporaryDir directory;
  desktop::Backups backups(directory.filePath("backups"));
  const QString one = directory.filePath("one.company");
  const QString other = directory.filePath("sub");
  QDir().mkpath(other);
  const QString namesake = other + "/one.company";
  write(namesake, "SQLite format 3: another company");
  EXPECT_FALSE(backups.setAside(directory.filePath("missing")));
  write(directory.filePath("text"), "no company file");
  EXPECT_FALSE(backups.setAside(directory.filePath("text")));
  const QDateTime start(QDate(2024, 1, 1), QTime(8, 0));
  for (int i = 0; i < 14; ++i) {
    write(one, "SQLite format 3" + QByteArray::number(i));
    ASSERT_TRUE(backups.setAside(one));
    backups.keep(one, start.addDays(i));
  }
  ASSERT_TRUE(backups.setAside(namesake));
  backups.drop(namesake);
  EXPECT_THAT(backups.of(namesake), IsEmpty());
  const auto kept = backups.of(one);
  ASSERT_EQ(kept.size(), 10);
  EXPECT_EQ(read(kept.front().path), "SQLite format 313");
  EXPECT_EQ(kept.front().made, start.addDays(13));
  EXPECT_EQ(read(kept.back().path), "SQLite format 34");
  EXPECT_EQ(backups.restore(kept.back(), one, start.addDays(20)), "") << "the oldest one";
  EXPECT_EQ(read(one), "SQLite format 34");
  EXPECT_EQ(read(backups.of(one).front().path), "SQLite format 313");
  EXPECT_NE(backups.restore({"/nowhere/at.all", start, 0}, one, start.addDays(21)), "");
  EXPECT_EQ(read(one), "SQLite format 34");
}

TEST(BackupsTest, WhatACrashLeavesBehindBecomesABackupWhereItDiffers) {
  const QTemporaryDir directory;
  const QString root = directory.filePath("backups");
  const QString company = directory.filePath("one.company");
  write(company, "SQLite format 3: before the crash");
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(desktop::Backups(root).setAside(company));
  desktop::Backups unchanged(root);
  ASSERT_TRUE(unchanged.setAside(company));
  unchanged.opened(company);
  EXPECT_THAT(unchanged.of(company), IsEmpty());
  write(company, "SQLite format 3: changed, and then the crash");
  desktop::Backups next(root);
  ASSERT_TRUE(next.setAside(company));
  next.opened(company);
  ASSERT_EQ(next.of(company).size(), 1);
  EXPECT_EQ(read(next.of(company).front().path), "SQLite format 3: before the crash");
}

TEST(BackupsTest, AProgramThatIsRefusedTakesNoBackupFromTheOneThatHoldsTheFile) {
  const QTemporaryDir directory;
  const QString company = directory.filePath("one.company");
  write(company, "SQLite format 3: first");
  desktop::Backups holder(directory.filePath("backups"));
  ASSERT_TRUE(holder.setAside(company));
  holder.opened(company);
  desktop::Backups refused(directory.filePath("backups"));
  ASSERT_TRUE(refused.setAside(company));
  refused.drop(company);
  holder.keep(company, QDateTime(QDate(2024, 1, 1), QTime(8, 0)));
  ASSERT_EQ(holder.of(company).size(), 1);
  EXPECT_EQ(read(holder.of(company).front().path), "SQLite format 3: first");
}

void collect(const UserControl& at, std::vector<const Control*>& found) {
  for (const Control* child : at.children()) {
    found.push_back(child);
    if (child->kind() == ControlKind::userControl) {
      collect(static_cast<const UserControl&>(*child), found);
    }
  }
}

TEST_F(Window, EveryPictureThatIsClickedHasAMnemonicThatNoMenuTakes) {
  newCompany();
  std::vector<const Control*> controls;
  collect(calculator().container(), controls);
  QString menu_letters;
  for (const QAction* menu : window.menuBar()->actions()) {
    menu_letters += menu->text().section(u'&', 1).left(1).toUpper();
  }
  int pictures = 0;
  for (const Control* control : controls) {
    const auto* picture = dynamic_cast<const PictureButton*>(control);
    // Escape closes a popup.
    if (picture != nullptr && picture->under() == nullptr && picture->role() != ButtonRole::close) {
      ++pictures;
      EXPECT_NE(picture->mnemonic(), 0) << picture->name();
    }
    if (control->mnemonic() == 0) continue;
    EXPECT_FALSE(menu_letters.contains(QChar(control->mnemonic()))) << control->name();
  }
  EXPECT_EQ(pictures, 9);
  // The button of a hint stands in the same window.
  const QString letter =
      window.findChild<QPushButton*>("HintMore")->text().section(u'&', 1).left(1);
  EXPECT_EQ(letter.size(), 1);
  EXPECT_FALSE(menu_letters.contains(letter.toUpper()));
  for (const Control* control : controls) {
    EXPECT_NE(QString(QChar(control->mnemonic())), letter.toUpper()) << control->name();
  }
  for (const Control* control : controls) {
    const auto* label = dynamic_cast<const Label*>(control);
    // The popup's links are in the Help menu, too; F1 clicks the label of a field.
    if (label == nullptr || !label->clickable() || label->target() != nullptr) continue;
    if (label->name().starts_with("LinkLabel")) continue;
    EXPECT_NE(label->mnemonic(), 0) << label->name();
  }
}

TEST_F(Window, AFailureOfTheHostIsToldOnceWhenTheCalculatorHasEndedWhatItDoes) {
  newCompany();
  for (const ErrorReport& report : {ErrorReport{"DepCalc::ReadData", 13, "Type mismatch"},
                                    {"DepCalc::Printbutton_Mouseup", 482, "Printer error"}}) {
    ReportError(report);
    settle();
    EXPECT_TRUE(boxes.take().empty()) << report.text();
  }
  ReportError({"DepCalc::WriteData", 61, "acme.company cannot be written: the disk is full."});
  ReportError({"DepCalc::Savebutton", 91, "Object variable not set"});
  EXPECT_TRUE(boxes.take().empty()) << "not in the middle of it";
  settle();
  EXPECT_THAT(boxes.take(),
              ::testing::ElementsAre("Depreciation Calculator | The last step could not be "
                                     "completed.\n\nacme.company cannot be written: the disk is "
                                     "full."));
  EXPECT_EQ(status(1), "");
}

TEST_F(Window, ACompanyWhoseFileIsLostIsNotLetGoToOpenItAgain) {
  newCompany();
  fill("A-1");
  companies.companies.at(path().toStdString()).lost = "joinery is no longer there.";
  EXPECT_FALSE(window.openCompany(path()));
  settle();
  EXPECT_THAT(boxes.take(),
              ::testing::ElementsAre("Depreciation Calculator | joinery is no longer there.\n\nTo "
                                     "keep what is open here, choose Save a Copy As… from the File "
                                     "menu."));
  ASSERT_NE(window.company(), nullptr);
  EXPECT_EQ(form().IDText.text(), "A-1");
}

TEST_F(Window, NothingOfTheHostFailsWhereNoCompanyIsOpen) {
  action("Depreciation Calculator").trigger();
  settle();
  EXPECT_EQ(boxes.take().size(), 1U) << "the calculator's own";
  EXPECT_EQ(status(1), "");
}

TEST_F(Window, WhereMemoryLeftAnAssetOrAChangeInPartNothingIsChangedUntilTheNextOpening) {
  newCompany();
  bool& refused = companies.companies.at(path().toStdString()).changes_refused;
  ReportError({"DepCalc::ShowView", 7, "Out of memory"});
  settle();
  EXPECT_EQ(boxes.take().size(), 1U);
  ReportError({"DepCalc::ReadData", 13, "Type mismatch"});
  EXPECT_FALSE(refused);
  for (const char* procedure :
       {"DepCalc::ReadData", "DepCalc::ReadTableInfo", "DepCalc::Get DepItem",
        "DepCalc::Let DepItem", "DepCalc::WriteData", "DepCalc::WriteTableInfo",
        "DepCalc::DeleteRecord", "DepCalc::DepCalcContSaveRecord"}) {
    refused = false;
    ReportError({procedure, 7, "Out of memory"});
    EXPECT_TRUE(refused) << procedure;
    EXPECT_EQ(status(1), "Out of memory: open the company again to change it");
    settle();
    EXPECT_EQ(boxes.take().size(), 1U) << procedure;
  }
}

TEST_F(Window, PreviewsShowEveryScreen) {
  newCompany();
  enterAsset({"TRK-014", "Delivery truck", "1FTYR10D", "Warehouse", "9/15/2023", "April", "5", "",
              "38450", "4000", "150000"});
  key(Qt::Key_S, Qt::AltModifier);
  ASSERT_EQ(shown(), "DepCalcView1");
  const QStringList paths = desktop::renderPreview(window, directory.path());
  std::vector<std::string> names;
  for (const QString& path : paths) {
    names.push_back(QFileInfo(path).fileName().toStdString());
    EXPECT_GT(QFileInfo(path).size(), 1000) << names.back();
  }
  EXPECT_THAT(
      names,
      ElementsAre("register.png", "register-selected.png", "schedule.pdf", "schedule-1.png",
                  "reports-schedule.png", "reports-years.png", "reports-rollforward.png",
                  "reports-journal.png", "reports-asset.png", "reports-check.png",
                  "preferences.png", "open-from-server.png", "company-info.png", "recalculate.png",
                  "dispose.png", "entry.png", "entry-help.png", "comparison.png",
                  "comparison-help.png", "workspace.png", "insight-chart.png",
                  "insight-what-if.png", "import.png", "import-ready.png", "history.png"));
}

}  // namespace
}  // namespace depcalc::testing
