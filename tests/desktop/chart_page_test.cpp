// Insight's chart: which year is read off it, keys, pointer, copies, looks, files.
#include "desktop/workspace/chart_page.h"
#include "desktop/workspace/insight_panel.h"

#include <QAccessible>
#include <QClipboard>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <set>

#include "desktop/window/dark_palette.h"
#include "tests/desktop/modal_steps.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using desktop::ChartCanvas;
using desktop::ChartPage;
using desktop::ChartReading;
using desktop::InsightPlace;
using desktop::InsightSubject;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

InsightSubject truck(std::optional<int> year = {}, std::int32_t number = 1) {
  SavedAsset asset;
  asset.number = number;
  asset.id = "TRK-014";
  asset.name = "Delivery truck";
  asset.placed_in_service = Date::strict(2023, 9, 15);
  asset.fiscal_year_end = Date::strict(2023, 3, 31);
  asset.basis = Currency::fromText("38450");
  asset.salvage = Currency::fromText("4000");
  asset.life = 5;
  asset.convention = "1";
  asset.method = "SYD";
  return {InsightPlace::comparison, asset, "SYD", year};
}

TEST(ChartReading, BeginsWithTheYearInViewElseWithTheFirst) {
  ChartReading reading;
  EXPECT_TRUE(reading.isEmpty());
  reading.follow(truck());
  EXPECT_EQ(reading.year(), 0U);
  reading.follow(truck(2026));
  EXPECT_EQ(reading.year(), 2U);
  EXPECT_TRUE(reading.move(1));
  InsightSubject same = truck(2026);
  same.asset.salvage = Currency();
  reading.follow(same);
  EXPECT_EQ(reading.year(), 3U) << "the user has gone on to another year";
  reading.follow(truck({}, 2));
  EXPECT_EQ(reading.year(), 0U) << "another asset";
  reading.follow(truck(2090));
  EXPECT_EQ(reading.year(), 5U) << "the last there is";
}

TEST(ChartReading, StaysWithinItsYears) {
  ChartReading reading;
  EXPECT_FALSE(reading.move(1));
  reading.follow(truck());
  EXPECT_FALSE(reading.move(-1));
  EXPECT_TRUE(reading.move(100));
  EXPECT_EQ(reading.year(), 5U);
  EXPECT_FALSE(reading.move(1));
  EXPECT_TRUE(reading.move(-100));
  EXPECT_EQ(reading.year(), 0U);
}

TEST(ChartReading, SaysTheValuesAndWhatCrosses) {
  ChartReading reading;
  reading.follow(truck(2025));
  EXPECT_THAT(
      reading.spoken(),
      AllOf(StartsWith("FY2025. Straight Line: book value 28,115.00, depreciation 6,890.00."),
            HasSubstr("Sum of the Years' Digits, the asset's method: book value")));
  EXPECT_THAT(reading.described(),
              HasSubstr("From FY2027 on, Straight Line takes more than Double Declining Balance."));
  EXPECT_EQ(reading.fileName(), "TRK-014 chart");
}

TEST(ChartReading, SaysWhatIsMissing) {
  ChartReading reading;
  reading.follow({});
  EXPECT_THAT(reading.reason(), HasSubstr("Choose an asset"));
  InsightSubject incomplete = truck();
  incomplete.asset.basis = Currency();
  reading.follow(incomplete);
  EXPECT_TRUE(reading.isEmpty());
  EXPECT_THAT(reading.reason(), HasSubstr("a useful life and a basis"));
  InsightSubject odd = truck();
  odd.asset.life = 1e6;
  reading.follow(odd);
  EXPECT_THAT(reading.reason(), HasSubstr("No method gives a schedule"));
}

TEST(ChartReading, NamesNoFileThatNoneMayBeCalled) {
  ChartReading reading;
  InsightSubject odd = truck();
  odd.asset.id = "../a:b\n";
  reading.follow(odd);
  EXPECT_EQ(reading.fileName(), ".._a_b_ chart");
}

struct ChartOnScreen : ::testing::Test {
  ChartOnScreen() {
    page.resize(400, 640);
    page.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
    page.follow(truck());
    canvas().setFocus();
  }
  ChartCanvas& canvas() { return *page.findChild<ChartCanvas*>("ChartCanvas"); }
  std::string told() { return canvas().accessibleDescription().toStdString(); }
  void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&canvas(), static_cast<Qt::Key>(key), modifiers);
  }
  QPushButton& button(const char* name) { return *page.findChild<QPushButton*>(name); }

  ChartPage page;
};

TEST_F(ChartOnScreen, ArrowsGoThroughTheYearsAndAreTold) {
  EXPECT_THAT(told(), StartsWith("FY2024."));
  press(Qt::Key_Right);
  EXPECT_THAT(told(), StartsWith("FY2025."));
  press(Qt::Key_End);
  EXPECT_THAT(told(), StartsWith("FY2029."));
  press(Qt::Key_Right);
  EXPECT_THAT(told(), StartsWith("FY2029."));
  press(Qt::Key_Left);
  EXPECT_THAT(told(), StartsWith("FY2028."));
  press(Qt::Key_Home);
  EXPECT_THAT(told(), StartsWith("FY2024."));
}

TEST_F(ChartOnScreen, ThePointerReadsTheNearestYear) {
  std::set<std::size_t> seen;
  for (int x = 0; x < canvas().width(); x += 5) {
    QTest::mouseMove(&canvas(), {x, canvas().height() / 2});
    seen.insert(canvas().reading().year());
  }
  EXPECT_EQ(seen.size(), 6U);
  QTest::mouseMove(&canvas(), {canvas().width() - 2, canvas().height() / 2});
  EXPECT_EQ(canvas().reading().year(), 5U);
  EXPECT_THAT(told(), StartsWith("FY2029."));
}

TEST_F(ChartOnScreen, CopiesAPictureATableAndBoth) {
  const auto copied = [] { return QApplication::clipboard()->mimeData(); };
  button("CopyPicture").click();
  EXPECT_TRUE(copied()->hasImage());
  EXPECT_TRUE(copied()->data("image/svg+xml").startsWith("<?xml"));
  EXPECT_FALSE(copied()->hasText());
  button("CopyTable").click();
  EXPECT_FALSE(copied()->hasImage());
  EXPECT_THAT(copied()->text().toStdString(),
              AllOf(StartsWith("Fiscal year\tStraight Line\tStraight Line, book value\t"),
                    HasSubstr("\n2025\t6890.0000\t28115.0000\t10335.0000\t22373.3300\t")));
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(copied()->hasImage());
  EXPECT_TRUE(copied()->hasText());
}

TEST_F(ChartOnScreen, OffersFilesOfBothKinds) {
  std::vector<desktop::ChartFile> files;
  QObject::connect(&page, &ChartPage::saveWanted,
                   [&](const desktop::ChartFile& file) { files.push_back(file); });
  button("SaveSvg").click();
  button("SavePng").click();
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(files[0].name, "TRK-014 chart.svg");
  EXPECT_THAT(files[0].content.toStdString(),
              HasSubstr("FY2025, Sum of the Years' Digits: 10,335.00"));
  const QImage image = QImage::fromData(files[1].content, "PNG");
  EXPECT_EQ(image.size(), QSize(1800, 800));
  EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
}

TEST_F(ChartOnScreen, HasNothingToCopyWhereThereIsNothing) {
  page.follow({});
  for (auto* each : page.findChildren<QPushButton*>()) EXPECT_FALSE(each->isEnabled());
  EXPECT_THAT(told(), HasSubstr("Choose an asset"));
  QApplication::clipboard()->setText("before");
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "before");
}

std::set<QRgb> coloursOf(QWidget& widget) {
  const QImage image = widget.grab().toImage();
  std::set<QRgb> colours;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) colours.insert(image.pixel(x, y));
  }
  return colours;
}

TEST_F(ChartOnScreen, HasItsLinesOnLightAndDark) {
  const QRgb light_lines[] = {qRgb(0, 60, 175), qRgb(102, 0, 0), qRgb(225, 88, 10)};
  const QRgb dark_lines[] = {qRgb(90, 200, 250), qRgb(255, 157, 138), qRgb(255, 240, 110)};
  const auto light = coloursOf(canvas());
  for (const QRgb line : light_lines) EXPECT_TRUE(light.count(line)) << std::hex << line;
  page.setPalette(desktop::darkPalette());
  const auto dark = coloursOf(canvas());
  for (const QRgb line : dark_lines) EXPECT_TRUE(dark.count(line)) << std::hex << line;
  for (const QRgb line : light_lines) EXPECT_FALSE(dark.count(line)) << std::hex << line;
}

struct ChartInWindow : WindowTest {
  ChartInWindow() {
    newCompany();
    compareTruck();
    if (window.findChild<QWidget*>("InsightPanel") == nullptr) action("Insight").trigger();
    settle();
    panel().choose("Chart");
    settle();
  }
  desktop::InsightPanel& panel() {
    return *window.findChild<desktop::InsightPanel*>("InsightPanel");
  }
  ChartCanvas& canvas() { return *window.findChild<ChartCanvas*>("ChartCanvas"); }
};

TEST_F(ChartInWindow, FollowsTheComparison) {
  QTRY_VERIFY_WITH_TIMEOUT(!canvas().reading().isEmpty(), 2000);
  EXPECT_EQ(canvas().reading().chart().series.size(), 3U);
  EXPECT_EQ(canvas().reading().chart().title, "TRK-014, Delivery truck");
}

void collectMnemonics(const Control& control, QString& letters) {
  if (control.mnemonic() != 0) letters += QChar(control.mnemonic());
  const auto* const parent = dynamic_cast<const UserControl*>(&control);
  if (parent == nullptr) return;
  for (const Control* child : parent->children()) collectMnemonics(*child, letters);
}

TEST_F(ChartInWindow, HasButtonsWithLettersThatNothingElseInTheWindowUses) {
  QString taken;
  collectMnemonics(calculator().container(), taken);
  for (const QAction* menu : window.menuBar()->actions()) {
    taken += menu->text().section(u'&', 1).left(1).toUpper();
  }
  for (const auto* button : window.findChildren<QAbstractButton*>()) {
    if (button->isVisible() && !panel().isAncestorOf(button)) {
      taken += button->text().section(u'&', 1).left(1).toUpper();
    }
  }
  QString own;
  for (const auto* button : panel().findChildren<QPushButton*>()) {
    if (!button->isVisible()) continue;
    const QString letter = button->text().section(u'&', 1).left(1).toUpper();
    EXPECT_FALSE(letter.isEmpty()) << button->text().toStdString();
    EXPECT_FALSE(taken.contains(letter)) << button->text().toStdString();
    EXPECT_FALSE(own.contains(letter)) << button->text().toStdString();
    own += letter;
  }
  EXPECT_EQ(own.size(), 4);
}

TEST_F(ChartInWindow, KeysReachAllOfAPageAndStayInIt) {
  QTRY_VERIFY_WITH_TIMEOUT(!canvas().reading().isEmpty(), 2000);
  std::vector<std::string> reached;
  canvas().setFocus();
  for (int i = 0; i < 6; ++i) {
    reached.push_back(QApplication::focusWidget()->objectName().toStdString());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(reached, ::testing::IsSupersetOf(
                           {"ChartCanvas", "CopyPicture", "CopyTable", "SaveSvg", "SavePng"}));
  EXPECT_TRUE(panel().isAncestorOf(QApplication::focusWidget()));
}

TEST_F(ChartInWindow, HasNamesForWhoDoesNotSeeIt) {
  for (auto* widget : panel().findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible()) continue;
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(widget);
    ASSERT_NE(told, nullptr);
    EXPECT_FALSE(told->text(QAccessible::Name).isEmpty())
        << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
  }
}

TEST_F(ChartInWindow, WritesAFileAndTellsWhatFails) {
  QTRY_VERIFY_WITH_TIMEOUT(!canvas().reading().isEmpty(), 2000);
  boxes.answering = false;
  ModalSteps steps;
  steps.thenChooseFile(path("chart"));
  window.findChild<QPushButton*>("SaveSvg")->click();
  QFile file(path("chart.svg"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll().endsWith("</svg>\n"));
  steps.thenChooseFile(path("gone") + "/chart.png");
  steps.thenPress("OK");
  steps.thenCancel();
  window.findChild<QPushButton*>("SavePng")->click();
  EXPECT_TRUE(steps.done());
  EXPECT_THAT(steps.takeBoxes(), ::testing::ElementsAre(HasSubstr("gone")));
}

}  // namespace
}  // namespace depcalc::testing
