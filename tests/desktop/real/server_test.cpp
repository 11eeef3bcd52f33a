// A company on a server by keys alone.
#include <QLabel>
#include <QListWidget>

#include "tests/desktop/real/real_window.h"
#include "tests/host/postgresql/test_server.h"

namespace depcalc::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using testing_support::testServer;

struct RealServer : RealWindow {
  RealServer() { EXPECT_EQ(depcalc({"new", address, "--name", "Nine Oaks Workshop"}), 0); }

  /// File > Open from Server, and what a user enters there.
  void listCompanies() {
    user.keys({"alt+f", "e"});
    ASSERT_EQ(user.dialog().title, "Open from Server");
    user.fills(QString::fromStdString(testServer().directory()));
    user.key("Tab");
    user.fills("postgres");
    user.fills("postgres");
    user.key("Return");
  }
  /// Looked at on the window's thread.
  static std::string chosen() {
    auto* const dialog = QApplication::activeModalWidget();
    auto* const list = dialog == nullptr ? nullptr : dialog->findChild<QListWidget*>("Companies");
    if (list == nullptr || list->currentItem() == nullptr || !list->hasFocus()) return {};
    return list->currentItem()->text().toStdString();
  }
  std::string title() {
    return gui([this] { return window->windowTitle().toStdString(); });
  }

  QString address = QString::fromStdString(testing_support::newAddress());
};

TEST_F(RealServer, IsOpenedByTheMenuEditedAndOpenedAgain) {
  listCompanies();
  ASSERT_TRUE(user.sees([] { return chosen() == "Company 1"; })) << "and the list has the keys";
  user.key("Return");
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_EQ(title(), "Nine Oaks Workshop on this computer – Depreciation Calculator");
  ASSERT_EQ(shown(), "DepCalcCtl1");
  enterAsset({"A1", "Truck", "1FTYR10D", "Warehouse", "9/15/2023", "", "5", "", "38450", "4000",
              "150000"});
  user.key("alt+s");
  EXPECT_TRUE(user.sees([this] { return window->calculator()->assetCount() == 1; }));
  EXPECT_EQ(depcalc({"list", address}), 4) << said.toStdString();
  EXPECT_THAT(said.toStdString(), HasSubstr("(depcalc-desktop, since "));
  user.key("ctrl+w");
  EXPECT_TRUE(user.sees([this] { return window->company() == nullptr; }));
  EXPECT_EQ(depcalc({"list", address, "--format", "csv"}), 0) << said.toStdString();
  EXPECT_THAT(said.section(u'\n', 1).toStdString(), StartsWith("A1,"));
  user.keys({"alt+f", "r", "1"});
  EXPECT_TRUE(user.sees([this] { return window->company() != nullptr; }));
  EXPECT_EQ(gui([this] { return window->company()->path(); }), address.toStdString());
}

TEST_F(RealServer, IsLeftByEscapeAndHelpedByF1) {
  listCompanies();
  user.key("F1");
  EXPECT_TRUE(user.sees([] {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->isVisible() && top->windowTitle().contains("Guide")) return true;
    }
    return false;
  }));
  user.keys({"Escape", "Escape"});
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_EQ(title(), "Depreciation Calculator");
}

}  // namespace
}  // namespace depcalc::testing
