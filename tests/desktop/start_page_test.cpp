// The page without a company: what it says, and what it leads to.
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;

struct StartPage : WindowTest {
  /// A company in memory, and a file in its place, so that it counts as still there.
  void leaveCompany(const char* name) {
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    newCompany(name);
    window.closeCompany();
  }
  static std::vector<std::string> buttons(const desktop::MainWindow& on) {
    std::vector<std::string> texts;
    for (const auto* button : on.page().findChildren<QPushButton*>()) {
      texts.push_back(button->text().section(QStringLiteral("  –  "), 0, 0).toStdString());
    }
    return texts;
  }
  desktop::MainWindow::Surroundings surroundings() {
    return {companies, settings, backups, [] { return Date::strict(2024, 6, 15); }, "/start"};
  }
};

TEST_F(StartPage, ComesBackWhereACompanyGivenAtTheStartCannotBeOpened) {
  leaveCompany("saw & sons");
  leaveCompany("two");
  desktop::MainWindow fresh(surroundings());
  fresh.openCompanyWhenPainted(path("nowhere"));
  std::string behind_the_box;
  std::vector<std::string> buttons_behind_it;
  boxes.answering = false;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    behind_the_box = fresh.statusBar()->findChildren<QLabel*>().at(0)->text().toStdString();
    buttons_behind_it = buttons(fresh);
    box->accept();
  });
  look.start(10);
  fresh.show();
  const auto offered = ElementsAre("&New Company…", "&Open Company…", "Open the &Sample Company",
                                   "two", "saw && sons");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !behind_the_box.empty(); }));
  EXPECT_EQ(behind_the_box, "No company open");
  EXPECT_THAT(buttons_behind_it, offered);
  look.stop();
  boxes.answering = true;
  EXPECT_THAT(buttons(fresh), offered);
  QTest::mouseClick(fresh.page().findChildren<QPushButton*>().at(4), Qt::LeftButton);
  ASSERT_TRUE(QTest::qWaitFor([&] { return fresh.company() != nullptr; }));
  EXPECT_EQ(fresh.company()->path(), path("saw & sons").toStdString());
  EXPECT_NE(fresh.calculator(), nullptr) << "it opens by itself";
}

TEST_F(StartPage, SaysWhatOneCanDo) {
  settle();
  auto* const text = window.findChild<QLabel*>("Placeholder");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->text(), "Open a company, or create a new one, to work with its assets.");
}

TEST_F(StartPage, OffersTheCompaniesByKeyboard) {
  leaveCompany("one");
  const auto found = window.page().findChildren<QPushButton*>();
  ASSERT_EQ(found.size(), 4);
  found[2]->setFocus();
  key(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), found[3]);
  key(Qt::Key_Return);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.company() != nullptr; }));
}

/// Its file went away while its button showed.
TEST_F(StartPage, StaysWhereARecentCompanyCannotBeOpened) {
  leaveCompany("one");
  leaveCompany("two");
  companies.companies.erase(path("two").toStdString());
  QFile::remove(path("two"));
  QTest::mouseClick(window.page().findChildren<QPushButton*>().at(3), Qt::LeftButton);
  settle();
  EXPECT_EQ(boxes.take().size(), 1U);
  EXPECT_THAT(buttons(window),
              ElementsAre("&New Company…", "&Open Company…", "Open the &Sample Company", "one"));
}

}  // namespace
}  // namespace depcalc::testing
