// The first day: a sample company, hints, preferences, and the guide from everywhere.
#include <QAccessible>
#include <QCheckBox>
#include <QListWidget>
#include <QMenuBar>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>

#include "desktop/guide/guide_pages.h"
#include "desktop/host/stored_companies.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/window/guide_window.h"
#include "desktop/window/reports_window.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// A window with the guide and the sample at hand, on company files of its own.
struct FirstDay : WindowTest {
  FirstDay() {
    QDir().mkdir(documents());
    other = std::make_unique<desktop::MainWindow>(desktop::MainWindow::Surroundings{
        files, settings, backups, [] { return Date::strict(2025, 12, 15); }, "/start",
        QStringLiteral(DEPCALC_SHARED), documents()});
    window.hide();
    other->show();
    other->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(other.get()));
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
  }
  ~FirstDay() override {
    other->close();
    other.reset();
  }

  QString documents() const { return directory.filePath("Documents"); }
  std::vector<std::string> documentNames() const {
    std::vector<std::string> names;
    for (const QString& name : QDir(documents()).entryList({"*.company"}, QDir::Files)) {
      names.push_back(name.toStdString());
    }
    return names;
  }
  template <typename Widget>
  Widget& find(const char* name) {
    auto* const found = other->findChild<Widget*>(name);
    if (found == nullptr) throw std::runtime_error(name);
    return *found;
  }
  QAction& item(const char* text) {
    for (QAction* found : other->findChildren<QAction*>()) {
      if (QString(found->text()).remove(u'&') == QString::fromUtf8(text)) return *found;
    }
    throw std::runtime_error(text);
  }
  void press(const char* name) {
    QTest::mouseClick(&find<QAbstractButton>(name), Qt::LeftButton);
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
  }
  void pressButton(const QString& text) {
    for (auto* button : other->page().findChildren<QPushButton*>()) {
      if (QString(button->text()).remove(u'&') != text) continue;
      QTest::mouseClick(button, Qt::LeftButton);
      for (int i = 0; i < 3; ++i) QApplication::processEvents();
      return;
    }
    FAIL() << text.toStdString();
  }
  std::string hint() {
    const auto& bar = find<QWidget>("HintBar");
    return bar.isVisible() ? find<QLabel>("Hint").text().toStdString() : "";
  }
  /// A key goes to the window that is active, which one that has just come up need not be yet.
  /// A dialog calls itself active while its parent is, and keys go there.
  static void pressF1(QWidget& window) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
    QTest::keyClick(&window, Qt::Key_F1);
  }
  /// One that was closed may not be gone yet.
  desktop::GuideWindow* guide() {
    for (auto* found : other->findChildren<desktop::GuideWindow*>()) {
      if (found->isVisible()) return found;
    }
    return nullptr;
  }
  QString guidePage() { return guide() == nullptr ? QString() : guide()->page(); }

  desktop::StoredCompanies files{[] { return Date::strict(2025, 12, 15); }};
  std::unique_ptr<desktop::MainWindow> other;
};

// The sample company ------------------------------------------------------------------------------

TEST_F(FirstDay, AClickMakesASampleCompanyInTheDocumentsThatSaysWhatItIs) {
  pressButton("Open the Sample Company");
  ASSERT_NE(other->company(), nullptr);
  EXPECT_THAT(documentNames(), ElementsAre("Sample Joinery.company"));
  EXPECT_EQ(other->company()->info().name, "Sample Joinery");
  EXPECT_EQ(other->calculator()->assetCount(), 10);
  EXPECT_THAT(hint(), HasSubstr("This is a sample company"));
}

/// As a screen reader comes to them.
TEST_F(FirstDay, AHintIsHeardOfBehindTheCalculatorThatItIsAbout) {
  pressButton("Open the Sample Company");
  QWidget& bar = find<QWidget>("HintBar");
  QAccessibleInterface* const both = QAccessible::queryAccessibleInterface(bar.parentWidget());
  const auto place = [&](QWidget& part) {
    return both->indexOfChild(QAccessible::queryAccessibleInterface(&part));
  };
  ASSERT_GE(place(other->page()), 0);
  EXPECT_LT(place(other->page()), place(bar));
}

TEST_F(FirstDay, ASampleCompanyTakesAFreeNameAndOverwritesNothing) {
  QFile mine(documents() + "/Sample Joinery.company");
  ASSERT_TRUE(mine.open(QIODevice::WriteOnly));
  mine.write("mine");
  mine.close();
  other->openSampleCompany();
  other->openSampleCompany();
  EXPECT_THAT(documentNames(), ElementsAre("Sample Joinery 2.company", "Sample Joinery 3.company",
                                           "Sample Joinery.company"));
  ASSERT_TRUE(mine.open(QIODevice::ReadOnly));
  EXPECT_EQ(mine.readAll(), "mine");
}

TEST_F(FirstDay, ASampleCompanyThatCannotBeCopiedIsTold) {
  const QString place = documents() + "/file";
  QFile file(place);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  desktop::MainWindow without({files, settings, backups, [] { return Date::strict(2025, 12, 15); },
                               "/start", QStringLiteral(DEPCALC_SHARED), place});
  without.show();
  without.openSampleCompany();
  EXPECT_THAT(boxes.take(), ElementsAre(HasSubstr("The sample company could not be copied to")));
  EXPECT_EQ(without.company(), nullptr);
}

TEST_F(FirstDay, ACompanyOfOnesOwnIsNoSample) {
  ASSERT_TRUE(other->createCompany(path("mine.company"), {"Mine", 1}));
  EXPECT_THAT(hint(), HasSubstr("This company has no assets yet"));
}

// Hints
// ---------------------------------------------------------------------------------------------

TEST_F(FirstDay, AHintThatWasDismissedStaysAwayAndOthersCome) {
  ASSERT_TRUE(other->createCompany(path("mine.company"), {"Mine", 1}));
  const std::string first = hint();
  press("HintDismiss");
  EXPECT_NE(hint(), first);
  other->closeCompany();
  EXPECT_EQ(hint(), "") << "without a company the page itself says what to do";
  ASSERT_TRUE(other->openCompany(path("mine.company")));
  EXPECT_NE(hint(), first);
  desktop::Settings remembered(directory.filePath("settings.ini"));
  settings.write();
  EXPECT_TRUE(remembered.isDismissed("first_asset_form"));
}

TEST_F(FirstDay, AHintTakesNeitherFocusNorWidthFromTheCalculator) {
  ASSERT_TRUE(other->createCompany(path("mine.company"), {"Mine", 1}));
  QWidget* const before = QApplication::focusWidget();
  const int zoom = other->page().surface()->scale().zoom();
  ASSERT_NE(hint(), "");
  press("HintMore");
  EXPECT_EQ(guidePage(), "entering-assets.html");
  other->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(other.get()));
  EXPECT_EQ(QApplication::focusWidget(), before);
  press("HintDismiss");
  press("HintDismiss");
  EXPECT_EQ(hint(), "");
  EXPECT_EQ(QApplication::focusWidget(), before);
  EXPECT_EQ(other->page().surface()->scale().zoom(), zoom);
  EXPECT_THAT(boxes.take(), IsEmpty());
}

/// With all that can stand around the page, no letter clicks two buttons.
TEST_F(FirstDay, TheLetterOfAHintBelongsToItAlone) {
  other->resize(1700, 900);
  other->openSampleCompany();
  for (const char* part : {"assets", "insight"}) {
    auto* const item = other->findChild<QAction*>(part);
    ASSERT_NE(item, nullptr) << part;
    if (!item->isChecked()) item->trigger();
  }
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
  const auto letterOf = [](const QString& text) { return text.section(u'&', 1).left(1).toUpper(); };
  QString letters;
  for (const QAction* menu : other->menuBar()->actions()) letters += letterOf(menu->text());
  for (const auto* button : other->findChildren<QAbstractButton*>()) {
    if (button->window() == other.get()) letters += letterOf(button->text());
  }
  const QString letter = letterOf(find<QPushButton>("HintMore").text());
  EXPECT_EQ(letters.count(letter), 1) << letter.toStdString() << " of " << letters.toStdString();
  EXPECT_EQ(letterOf(find<QPushButton>("HintDismiss").text()), "")
      << "every letter left is one of the calculator's";
}

// Preferences -----------------------------------------------------------------------------------

TEST_F(FirstDay, PreferencesCountAtOnceAndAreRemembered) {
  other->openSampleCompany();
  const QPalette desktops = QApplication::palette();
  onDialog([this] { item("Preferences…").trigger(); },
           [&](QDialog& dialog) {
             const auto choose = [&](const char* name, int index) {
               auto* const box = dialog.findChild<QComboBox*>(name);
               ASSERT_NE(box, nullptr) << name;
               box->setCurrentIndex(index);
               emit box->activated(index);
             };
             choose("Appearance", 2);
             EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), 100);
             choose("Appearance", 1);
             EXPECT_GT(QApplication::palette().color(QPalette::Window).lightness(), 200);
             choose("Zoom", 4);
             EXPECT_EQ(other->page().surface()->scale().zoom(), 150);
             choose("PaperSize", 1);
             choose("ReportsLie", 1);
             EXPECT_NE(hint(), "");
             dialog.findChild<QCheckBox*>("Hints")->click();
             EXPECT_EQ(hint(), "");
             dialog.findChild<QCheckBox*>("AskUndoDisposal")->click();
           });
  settings.write();
  const desktop::Settings remembered(directory.filePath("settings.ini"));
  EXPECT_EQ(remembered.appearance(), desktop::Appearance::light);
  EXPECT_EQ(remembered.zoom(), 150);
  EXPECT_FALSE(remembered.fitWidth());
  EXPECT_EQ(remembered.paperSize(), desktop::PaperSize::letter);
  EXPECT_FALSE(remembered.reportsLandscape());
  EXPECT_FALSE(remembered.gives(desktop::Notice::hints));
  EXPECT_FALSE(remembered.gives(desktop::Notice::undo_disposal));
  EXPECT_TRUE(remembered.gives(desktop::Notice::recalculation));
  onDialog([this] { item("Preferences…").trigger(); },
           [&](QDialog& dialog) {
             EXPECT_EQ(dialog.findChild<QComboBox*>("Appearance")->currentIndex(), 1);
             EXPECT_EQ(dialog.findChild<QComboBox*>("Zoom")->currentIndex(), 4);
             dialog.findChild<QComboBox*>("Zoom")->setCurrentIndex(0);
             dialog.findChild<QComboBox*>("Appearance")->setCurrentIndex(0);
           });
  EXPECT_TRUE(settings.fitWidth());
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), desktops.color(QPalette::Window));
}

/// Labels and boxes of the window, and its buttons, each by another letter.
TEST_F(FirstDay, PreferencesHaveALetterEachAndAnOrder) {
  onDialog([this] { item("Preferences…").trigger(); },
           [](QDialog& dialog) {
             QString letters;
             for (auto* label : dialog.findChildren<QLabel*>()) {
               if (label->buddy() != nullptr) letters += label->text().section(u'&', 1).left(1);
             }
             for (auto* button : dialog.findChildren<QAbstractButton*>()) {
               letters += button->text().section(u'&', 1).left(1);
             }
             letters = letters.toUpper();
             EXPECT_GE(letters.size(), 8);
             for (const QChar letter : letters) {
               EXPECT_EQ(letters.count(letter), 1) << letters.toStdString();
             }
             std::vector<std::string> reached;
             QWidget* at = &dialog;
             do {
               at = at->nextInFocusChain();
               if ((at->focusPolicy() & Qt::TabFocus) != 0 && at->isEnabled() &&
                   !at->objectName().startsWith("qt_") && !at->objectName().isEmpty()) {
                 reached.push_back(at->objectName().toStdString());
               }
             } while (at != &dialog);
             EXPECT_THAT(reached,
                         ElementsAre("Appearance", "Zoom", "PaperSize", "ReportsLie", "Hints",
                                     "OfferRecalculation", "AskUndoDisposal", "Help"));
           });
}

TEST_F(FirstDay, DismissedHintsComeBackWhereOneAsksForThem) {
  ASSERT_TRUE(other->createCompany(path("mine.company"), {"Mine", 1}));
  const std::string first = hint();
  press("HintDismiss");
  onDialog([this] { item("Preferences…").trigger(); },
           [&](QDialog& dialog) {
             auto* const again = dialog.findChild<QPushButton*>("HintsAgain");
             ASSERT_TRUE(again->isEnabled());
             again->click();
             EXPECT_FALSE(again->isEnabled());
           });
  EXPECT_EQ(hint(), first);
}

TEST_F(FirstDay, ThePaperOfReportsIsRememberedAndFollowsThePreferences) {
  other->openSampleCompany();
  other->showReports(desktop::ReportKind::schedule);
  const auto paper = [this] { return find<QComboBox>("Paper").currentText(); };
  EXPECT_EQ(paper(), "A4 landscape");
  find<QComboBox>("Paper").setCurrentIndex(3);
  EXPECT_EQ(settings.paperSize(), desktop::PaperSize::letter);
  EXPECT_FALSE(settings.reportsLandscape());
  delete other->findChild<desktop::ReportsWindow*>();
  other->showReports(desktop::ReportKind::schedule);
  EXPECT_EQ(paper(), "Letter portrait");
  onDialog([this] { item("Preferences…").trigger(); },
           [&](QDialog& dialog) {
             emit dialog.findChild<QComboBox*>("PaperSize")->activated(0);
             EXPECT_EQ(paper(), "A4 portrait");
           });
}

// The guide ---------------------------------------------------------------------------------------

/// Every dialog of the host's by the item that opens it, and the page of its own.
TEST_F(FirstDay, EveryDialogOpensItsPageByHelpAndByF1) {
  other->openSampleCompany();
  const auto select = [this](int asset) { other->calculator()->selectAsset(asset); };
  QDir().mkpath(directory.filePath("backups"));
  const struct {
    const char* item;
    int asset;
    std::string_view page;
  } cases[] = {{"Company Info…", 1, desktop::guide::company_info},
               {"Recalculate All Assets…", 1, desktop::guide::recalculation},
               {"Dispose…", 1, desktop::guide::disposals},
               {"Units Produced…", 5, desktop::guide::units},
               {"Preferences…", 1, desktop::guide::preferences}};
  for (const auto& [name, asset, page] : cases) {
    const QString wanted = QString::fromUtf8(page.data(), static_cast<int>(page.size()));
    for (const bool by_button : {true, false}) {
      select(asset);
      onDialog([&, name = name] { item(name).trigger(); },
               [&, name = name](QDialog& dialog) {
                 if (by_button) {
                   auto* const help = dialog.findChild<QPushButton*>("Help");
                   ASSERT_NE(help, nullptr) << name;
                   help->click();
                 } else {
                   pressF1(dialog);
                 }
                 EXPECT_EQ(guidePage(), wanted) << name;
                 EXPECT_TRUE(dialog.isVisible()) << "it waits: " << name;
                 if (guide() != nullptr) guide()->close();
               });
    }
  }
}

TEST_F(FirstDay, ARefusalOfTheFormLeadsToItsReason) {
  ASSERT_TRUE(other->createCompany(path("mine.company"), {"Mine", 1}));
  onDialog([this] { item("Calculate").trigger(); },
           [&](QDialog& box) {
             pressF1(box);
             EXPECT_EQ(guidePage(), "refusals.html#date");
           });
}

TEST_F(FirstDay, F1WithoutACompanyOpensTheGuide) {
  pressF1(*other);
  EXPECT_EQ(guidePage(), "first-company.html");
}

TEST_F(FirstDay, AGuideThatIsNotThereIsTold) {
  desktop::MainWindow without({files, settings, backups, [] { return Date::strict(2025, 12, 15); },
                               "/start", path("nothing"), documents()});
  without.openGuide("index.html");
  EXPECT_THAT(boxes.take(), ElementsAre(HasSubstr("The guide is not installed.")));
}

TEST_F(FirstDay, TheGuideGoesBackAndForthAndFindsWords) {
  other->openGuide("index.html");
  auto& guide = find<desktop::GuideWindow>("GuideWindow");
  auto& contents = find<QListWidget>("GuideContents");
  EXPECT_EQ(contents.count(), std::ssize(desktop::guidePages()));
  contents.setCurrentRow(2);
  EXPECT_EQ(guide.page(), "entering-assets.html");
  press("GuideBack");
  EXPECT_EQ(guide.page(), "index.html");
  EXPECT_EQ(contents.currentRow(), 0);
  press("GuideForward");
  EXPECT_EQ(guide.page(), "entering-assets.html");
  auto& words = find<QLineEdit>("GuideWords");
  words.setText("hledger");
  ASSERT_EQ(contents.count(), 1);
  EXPECT_THAT(contents.item(0)->text().toStdString(), HasSubstr("hledger"));
  QTest::keyClick(&words, Qt::Key_Return);
  EXPECT_EQ(guide.page(), "year-end.html");
  EXPECT_EQ(find<QTextBrowser>("GuideView").textCursor().selectedText(), "hledger");
  words.setText("nothing of this kind");
  EXPECT_EQ(contents.item(0)->text(), "No page has these words.");
  words.clear();
  EXPECT_EQ(contents.count(), std::ssize(desktop::guidePages()));
  press("GuideHome");
  EXPECT_EQ(guide.page(), "index.html");
}

TEST_F(FirstDay, APlaceOnAPageIsScrolledTo) {
  other->openGuide("methods.html#rounding");
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
  EXPECT_GT(find<QTextBrowser>("GuideView").verticalScrollBar()->value(), 200);
}

TEST_F(FirstDay, TheGuideIsInTheColoursOfTheDesktop) {
  other->openGuide("index.html");
  auto& view = find<QTextBrowser>("GuideView");
  const auto heading = [&] {
    return view.document()->begin().next().begin().fragment().charFormat().foreground().color();
  };
  const QColor light = heading();
  EXPECT_GT(view.palette().color(QPalette::Base).lightness(), light.lightness());
  settings.setAppearance(desktop::Appearance::dark);
  onDialog([this] { item("Preferences…").trigger(); },
           [](QDialog& dialog) {
             dialog.findChild<QComboBox*>("Appearance")->setCurrentIndex(0);
             dialog.findChild<QComboBox*>("Appearance")->setCurrentIndex(2);
           });
  for (int i = 0; i < 3; ++i) QApplication::processEvents();
  EXPECT_LT(view.palette().color(QPalette::Base).lightness(), 100);
}

}  // namespace
}  // namespace depcalc::testing
