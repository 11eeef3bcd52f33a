// The assets beside the page, by real keys and clicks.
#include <QCheckBox>
#include <QDockWidget>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>

#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

struct AssetsBeside : RealWindow {
  void SetUp() override {
    makeCompany(path(),
                "id,name,serial,department,placed_in_service,life,method,basis\n"
                "TRK-14,Delivery truck,1FTY,Warehouse,4/15/2023,5,SL,3000\n"
                "SAW-10,Panel saw,S-10,Workshop,4/15/2023,5,SL,1000\n"
                "SAW-9,Band saw,S-9,Workshop,4/15/2023,5,SL,2000\n"
                "VAN-1,Old van,V-1,Warehouse,4/15/2022,5,SL,800\n");
    openCompany(path());
  }

  template <typename Widget>
  Widget* part(const char* name) {
    Widget* const found = gui([&] { return window->findChild<Widget*>(name); });
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  // On the window's thread.
  std::vector<std::string> listed() {
    std::vector<std::string> ids;
    const auto* const list = window->findChild<QTableView*>("AssetList");
    for (int row = 0; row < list->model()->rowCount(); ++row) {
      ids.push_back(list->model()->index(row, 0).data().toString().toStdString());
    }
    return ids;
  }
  std::string totals() { return window->findChild<QLabel*>("AssetTotals")->text().toStdString(); }

  bool seesListed(const std::vector<std::string>& ids) {
    return user.sees([&] { return listed() == ids; });
  }
  int selected() {
    return gui([this] { return assets().AssetViewTable.column(); });
  }
  /// `right`: pixels from the caption's left edge; two clicks at one place are a double click.
  void clickHeader(int column, int right) {
    auto* const list = part<QTableView>("AssetList");
    QWidget* viewport = nullptr;
    const QPoint place = gui([&] {
      QHeaderView& header = *list->horizontalHeader();
      viewport = header.viewport();
      return QPoint(header.sectionViewportPosition(column) + right, header.height() / 2);
    });
    user.clicks(viewport, place);
  }
};

TEST_F(AssetsBeside, AreSearchedChosenAndEditedByKeysAlone) {
  user.key("ctrl+f");
  user.types("saw work");
  ASSERT_TRUE(seesListed({"SAW-10", "SAW-9"}));
  EXPECT_THAT(gui([this] { return totals(); }),
              StartsWith("2 in service · cost 3,000.00 · book value "));
  user.key("Down");
  user.key("Down");
  EXPECT_EQ(selected(), 3) << "in the register, which shows";
  user.key("Return");
  ASSERT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(text(&DepCalcCtl::IDText), "SAW-9");
  user.fills("SAW-90");
  user.key("ctrl+f");
  user.types("truck");
  ASSERT_TRUE(seesListed({"TRK-14"}));
  EXPECT_EQ(text(&DepCalcCtl::IDText), "SAW-90") << "looking for another asks nothing";
  user.key("Return");
  EXPECT_THAT(user.dialog().buttons, ElementsAre("Yes", "No", "Cancel"));
  user.key("Escape");
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(text(&DepCalcCtl::IDText), "SAW-90");
  user.key("ctrl+f");
  user.key("Return");
  EXPECT_TRUE(user.answers("No"));
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_TRUE(user.sees([this] { return form().IDText.text() == "TRK-14"; }));
  EXPECT_THAT(idsIn(path()), ElementsAre("TRK-14", "SAW-10", "SAW-9", "VAN-1"));
}

TEST_F(AssetsBeside, EscapeLeadsFromTheSearchBackIntoTheFieldThatWasLeft) {
  clickCell(0, 1);
  user.key("Return");
  user.key("Tab");
  user.key("ctrl+f");
  user.types("x");
  user.key("Escape");
  user.key("Escape");
  user.types("er");
  EXPECT_EQ(gui([this] { return window->findChild<QLineEdit*>("AssetSearch")->text(); }), "");
  EXPECT_THAT(text(&DepCalcCtl::NameText), ::testing::HasSubstr("er"));
}

TEST_F(AssetsBeside, AreSortedByAClickHiddenAndRememberedOverARestart) {
  user.key("ctrl+f");
  ASSERT_TRUE(seesListed({"TRK-14", "SAW-10", "SAW-9", "VAN-1"}));
  clickCell(0, 4);
  menu("Dispose…");
  EXPECT_EQ(user.dialog().title, "Dispose of Asset");
  user.fills("6/1/2024");
  user.types("10");
  user.key("Return");
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_TRUE(user.sees([this] { return totals().ends_with("1 disposed of"); }));
  user.clicks(part<QCheckBox>("HideDisposed"));
  EXPECT_TRUE(seesListed({"TRK-14", "SAW-10", "SAW-9"}));
  clickHeader(0, 12);
  EXPECT_TRUE(seesListed({"SAW-9", "SAW-10", "TRK-14"}));
  clickHeader(0, 40);
  EXPECT_TRUE(seesListed({"TRK-14", "SAW-10", "SAW-9"}));
  clickHeader(1, 12);
  EXPECT_TRUE(seesListed({"SAW-9", "TRK-14", "SAW-10"}));
  restart();
  openCompany(path());
  EXPECT_TRUE(user.sees([this] { return window->findChild<QTableView*>("AssetList") != nullptr; }));
  EXPECT_TRUE(seesListed({"SAW-9", "TRK-14", "SAW-10"}));
  EXPECT_TRUE(gui([this] { return window->findChild<QCheckBox*>("HideDisposed")->isChecked(); }));
}

TEST_F(AssetsBeside, AreClosedByTheirButtonAndStayClosed) {
  user.key("ctrl+f");
  auto* const dock = part<QDockWidget>("assetsDock");
  user.clicks(gui([&] { return dock->findChild<QWidget*>("qt_dockwidget_closebutton"); }));
  EXPECT_TRUE(user.sees([&] { return !dock->isVisible(); }));
  restart();
  openCompany(path());
  EXPECT_TRUE(gui([this] {
    auto* const found = window->findChild<QDockWidget*>("assetsDock");
    return found == nullptr || !found->isVisible();
  }));
}

}  // namespace
}  // namespace depcalc::testing
