// The Reports window by keys and clicks alone.
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QTextBrowser>
#include <map>
#include <utility>

#include "desktop/window/report_preview.h"
#include "desktop/window/reports_window.h"
#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

struct RealReports : RealWindow {
  void SetUp() override {
    makeCompany(path(),
                "id,department,placed_in_service,life,method,basis,fiscal_year_end\n"
                "A1,Shop,1/15/2023,5,SL,1000,03-31\nA2,Office,7/15/2023,5,SYD,1500,03-31\n");
    openCompany(path());
  }

  QWidget* reports() {
    for (QWidget* found : window->findChildren<QWidget*>("ReportsWindow")) {
      if (found->isVisible() && found->isActiveWindow()) return found;
    }
    return nullptr;
  }
  bool seesReports() {
    return user.sees([this] { return reports() != nullptr; });
  }
  std::string page() {
    return gui([this] {
      auto* const preview = reports()->findChild<desktop::ReportPreview*>("ReportPreview");
      return preview->viewport()->accessibleDescription().toStdString();
    });
  }
  int row() {
    return gui([this] { return reports()->findChild<QListWidget*>("Kinds")->currentRow(); });
  }
};

TEST_F(RealReports, OpenFromTheMenuAndAreChosenByKeys) {
  user.keys({"alt+r", "d"});
  ASSERT_TRUE(seesReports());
  EXPECT_EQ(row(), 0);
  EXPECT_THAT(page(), HasSubstr("Depreciation schedule, FY"));
  user.key("Down");
  EXPECT_EQ(row(), 1);
  EXPECT_THAT(page(), HasSubstr("All fiscal years"));
  EXPECT_THAT(page(), HasSubstr("A2"));
  // By its mnemonic to the grouping, and there to departments.
  user.keys({"alt+g", "Down"});
  EXPECT_THAT(page(), HasSubstr("Office, 1 asset"));
  user.key("ctrl+c");
  EXPECT_THAT(gui([] { return QApplication::clipboard()->text().toStdString(); }),
              StartsWith("N\tAsset ID\t"));
  user.key("Escape");
  EXPECT_TRUE(user.sees([this] { return window->isActiveWindow(); }));
}

TEST_F(RealReports, AreExportedToTheNamedFile) {
  user.keys({"alt+r", "j"});
  ASSERT_TRUE(seesReports());
  user.keys({"alt+e", "c"});
  EXPECT_EQ(user.dialog().kind, "QFileDialog");
  user.choosesFile(path("entry"));
  EXPECT_TRUE(user.seesNoDialog());
  QFile file(path("entry.csv"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll().startsWith("date,entry,account,debit,credit,memo"));
}

TEST_F(RealReports, FollowWhatIsSavedInTheMainWindow) {
  user.keys({"alt+r", "c"});
  ASSERT_TRUE(seesReports());
  EXPECT_THAT(page(), HasSubstr("A1"));
  QWidget* const behind = reports();
  gui([this] { window->activateWindow(); });
  EXPECT_TRUE(user.sees([this] { return window->isActiveWindow(); }));
  clickCell(0, 1);
  user.key("Return");
  ASSERT_EQ(shown(), "DepCalcCtl1");
  user.fills("A1-new");
  auto* const unsaved = behind->findChild<QLabel*>("Unsaved");
  EXPECT_TRUE(user.sees([&] { return unsaved->isVisible(); }));
  user.key("ctrl+s");
  ASSERT_EQ(shown(), "DepCalcView1");
  EXPECT_TRUE(user.sees([&] { return !unsaved->isVisible(); }));
  auto* const preview = behind->findChild<desktop::ReportPreview*>("ReportPreview");
  EXPECT_TRUE(user.sees([&] {
    return preview->viewport()->accessibleDescription().contains(QStringLiteral("A1-new"));
  }));
}

/// Where on the page each amount of an asset and a fiscal year is. Every few dots are tried.
using AmountPlaces = std::map<std::pair<int, int>, QPoint>;

AmountPlaces amountPlaces(desktop::ReportsWindow& reports) {
  constexpr int step = 4;
  AmountPlaces places;
  QPoint place;
  QObject context;
  QObject::connect(&reports, &desktop::ReportsWindow::amountPointed, &context,
                   [&](std::int32_t asset, std::optional<int> year) {
                     if (year) places.try_emplace({asset, *year}, place + QPoint(step, step));
                   });
  QWidget* const sheet = reports.findChild<desktop::ReportPreview*>("ReportPreview")->viewport();
  for (place.ry() = 0; place.y() < sheet->height(); place.ry() += step) {
    for (place.rx() = 0; place.x() < sheet->width(); place.rx() += step) {
      QMouseEvent press(QEvent::MouseButtonPress, place, sheet->mapToGlobal(place), Qt::LeftButton,
                        Qt::LeftButton, Qt::NoModifier);
      QApplication::sendEvent(sheet, &press);
    }
  }
  return places;
}

TEST_F(RealReports, LeadInsightToTheAmountThatIsClicked) {
  const auto heading = [this] {
    auto* const text = window->findChild<QTextBrowser*>("WhyText");
    return text != nullptr && text->isVisible() ? text->accessibleDescription() : QString();
  };
  if (!gui([this] {
        auto* const text = window->findChild<QTextBrowser*>("WhyText");
        return text != nullptr && text->isVisible();
      })) {
    menu("Insight");
  }
  user.keys({"alt+r", "d"});
  ASSERT_TRUE(seesReports());
  user.key("Down");
  ASSERT_THAT(page(), HasSubstr("All fiscal years"));
  auto* const open = qobject_cast<desktop::ReportsWindow*>(reports());
  ASSERT_NE(open, nullptr);
  const AmountPlaces places = gui([open] { return amountPlaces(*open); });
  QWidget* const sheet =
      gui([open] { return open->findChild<desktop::ReportPreview*>("ReportPreview")->viewport(); });
  const struct {
    int asset;
    int year;
    const char* heading;
  } clicks[] = {{1, 2024, "Straight Line, FY2024: 200.00"},
                {2, 2025, "Sum of the Years' Digits, FY2025: 400.00"},
                {2, 2024, "Sum of the Years' Digits, FY2024: 500.00"}};
  for (const auto& click : clicks) {
    const auto place = places.find({click.asset, click.year});
    ASSERT_NE(place, places.end()) << click.heading;
    user.clicks(sheet, place->second);
    EXPECT_TRUE(user.sees([&] { return heading() == QString::fromUtf8(click.heading); }))
        << click.heading << " but " << gui(heading).toStdString();
  }
}

}  // namespace
}  // namespace depcalc::testing
