// Undo and redo by real keys, through a restart of the program.
#include <QTreeWidget>

#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;

struct Undoing : RealWindow {
  void SetUp() override {
    makeCompany(path(),
                "id,placed_in_service,life,method,basis,capacity\n"
                "A1,1/15/2023,5,SL,1000,\nB1,1/15/2023,5,UOP,2000,500\n"
                "C1,1/15/2023,5,SYD,3000,\n");
    openCompany(path());
  }
  /// All that the company file holds.
  std::string content() {
    const QString copy = path("look.company");
    QFile::remove(copy);
    EXPECT_EQ(RealUser::runs("cp", {path(), copy}), 0);
    EXPECT_EQ(depcalc({"dump", copy}), 0) << said.toStdString();
    return said.toStdString();
  }
  bool showsAssets(int count) {
    return user.sees([this, count] {
      desktop::Calculator* const calculator = window->calculator();
      return calculator != nullptr && calculator->assetCount() == count &&
             calculator->container().visibleScreen() == &assets();
    });
  }
};

TEST_F(Undoing, LeadsBackThroughTheSessionAndTheOneBefore) {
  std::vector<std::string> states{content()};

  clickCell(0, 1);
  user.key("Delete");
  EXPECT_EQ(user.dialog().title, "Delete an Asset");
  EXPECT_TRUE(user.answers("Yes"));
  EXPECT_TRUE(showsAssets(2));
  states.push_back(content());

  clickCell(0, 2);
  menu("Dispose…");
  EXPECT_EQ(user.dialog().title, "Dispose of Asset");
  user.fills("6/30/2025");
  user.types("500");
  user.key("Return");
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_TRUE(showsAssets(2));
  states.push_back(content());
  EXPECT_NE(states[1], states[2]);

  user.key("ctrl+shift+n");
  enterAsset({"NEW", "Lathe", "", "", "3/1/2024", "", "5", "", "1200", "200", ""});
  user.key("alt+s");
  EXPECT_TRUE(showsAssets(3));
  EXPECT_THAT(idsIn(path()), ElementsAre("B1", "C1", "NEW"));

  for (const std::size_t state : {2U, 1U, 0U}) {
    user.key("ctrl+z");
    EXPECT_TRUE(showsAssets(state == 0 ? 3 : 2));
    EXPECT_EQ(content(), states[state]);
  }
  user.key("ctrl+z");
  EXPECT_EQ(content(), states[0]) << "there is nothing more";
  user.key("ctrl+shift+z");
  EXPECT_TRUE(showsAssets(2));
  EXPECT_EQ(content(), states[1]);
  user.key("ctrl+y");
  EXPECT_TRUE(showsAssets(2));
  EXPECT_EQ(content(), states[2]);

  restart();
  openCompany(path());
  EXPECT_TRUE(showsAssets(2));
  // In a field the keys are the field's.
  user.key("ctrl+shift+n");
  user.types("typed");
  EXPECT_EQ(text(&DepCalcCtl::IDText), "typed");
  user.key("ctrl+z");
  EXPECT_NE(text(&DepCalcCtl::IDText), "typed");
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(content(), states[2]);
  user.types("typed");
  menu("Undo Disposal of C1");
  EXPECT_TRUE(user.answers("Cancel"));
  EXPECT_EQ(text(&DepCalcCtl::IDText), "typed");
  menu("Undo Disposal of C1");
  EXPECT_TRUE(user.answers("No"));
  EXPECT_TRUE(showsAssets(2));
  EXPECT_EQ(content(), states[1]) << "what the session before did";
  user.key("ctrl+z");
  EXPECT_TRUE(showsAssets(3));
  EXPECT_EQ(content(), states[0]);
}

TEST_F(Undoing, IsThereInTheHistoryByKeysAlone) {
  clickCell(0, 2);
  user.key("Delete");
  EXPECT_TRUE(user.answers("Yes"));
  EXPECT_TRUE(showsAssets(2));
  user.keys({"alt+i", "h"});
  EXPECT_EQ(user.dialog().title, "History");
  const auto step = [] {
    return gui([] {
      auto* const steps = QApplication::activeModalWidget()->findChild<QTreeWidget*>("Steps");
      const QTreeWidgetItem* const current = steps->currentItem();
      return (current->text(1) + QStringLiteral(", ") + current->text(2)).toStdString();
    });
  };
  EXPECT_EQ(step(), "Deletion of B1, ◀ current");
  user.key("alt+u");
  EXPECT_TRUE(showsAssets(3));
  EXPECT_EQ(step(), "Deletion of B1, undone");
  user.key("alt+r");
  EXPECT_TRUE(showsAssets(2));
  user.key("Escape");
  EXPECT_TRUE(user.seesNoDialog());
}

}  // namespace
}  // namespace depcalc::testing
