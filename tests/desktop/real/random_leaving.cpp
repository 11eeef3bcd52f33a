// What the random user does to the window, and beside it, and how it leaves.
#include <QFile>
#include <QFileInfo>

#include "tests/desktop/real/random_actions.h"

namespace depcalc::testing {

// --- Of the window, and beside it -------------------------------------------------------------

void RandomActions::cancelDialog() {
  constexpr const char* items[] = {
      "Open Company…",  "New Company…", "Company Info…", "Restore Backup…",
      "Print Preview…", "Print…",       "About"};
  const char* const item = oneOf(items);
  note(std::string("opens and leaves ") + item);
  stays_ = true;
  menu(item);
  answerDialogs();
  // A file dialog has read the company's folder, and what is in it.
  if (chance(50)) secondProgramTries();
}

void RandomActions::minimise() {
  note("minimises the window and brings it back");
  stays_ = true;
  const QString id = QString::number(gui([this] { return window->winId(); }));
  RealUser::runs("xdotool", {"windowminimize", id});
  EXPECT_TRUE(user.sees([this] { return window->isMinimized(); }));
  RealUser::runs("xdotool", {"windowactivate", id});
  EXPECT_TRUE(user.sees([this] { return window->isActiveWindow() && !window->isMinimized(); }));
  user.settles();
}

void RandomActions::resizeWindow() {
  note("resizes the window");
  stays_ = true;
  const QString id = QString::number(gui([this] { return window->winId(); }));
  RealUser::runs("xdotool", {"windowsize", id, QString::number(700 + 50 * below(10)),
                             QString::number(500 + 50 * below(6))});
  user.settles();
}

void RandomActions::zoom() {
  note("zooms");
  stays_ = true;
  constexpr const char* keys[] = {"ctrl+plus", "ctrl+minus", "ctrl+0", "ctrl+0"};
  user.key(oneOf(keys));
}

void RandomActions::help() {
  note("asks for help");
  stays_ = true;
  user.key("F1");
  if (chance(70)) user.key("Escape");
}

void RandomActions::secondProgramTries() {
  const char* const any[] = {"joinery.company", "bakery.company"};
  const QString company = chance(75) && isOpen() ? openPath() : path(QString::fromUtf8(oneOf(any)));
  note("a second program imports into " + QFileInfo(company).fileName().toStdString());
  stays_ = true;
  const QString id = QStringLiteral("X%1").arg(below(1000));
  QFile csv(path("rows.csv"));
  ASSERT_TRUE(csv.open(QIODevice::WriteOnly));
  csv.write("id,placed_in_service,fiscal_year_end,life,convention,basis,salvage,capacity\n" +
            id.toUtf8() + ",2022-05-16,03-31,10,Half Month,18900,1500,0\n");
  csv.close();
  const int status = depcalc({"import", company, csv.fileName()});
  if (company == openPath()) {
    EXPECT_NE(status, 0) << "the company is open";
  } else if (status == 0) {
    told_[company] = {Told::What::imported, {}, {{"id", id.toStdString()}, {"basis", "18900"}}};
  }
}

// --- Leaving ----------------------------------------------------------------------------------

void RandomActions::savedOnLeaving(const QString& company, const FormTexts& texts, bool left) {
  if (!left || !answered("Save Changes", "Yes")) return;
  told_[company] = {Told::What::saved, edited_, texts};
}

void RandomActions::closeCompany() {
  note("closes the company");
  const QString company = openPath();
  const FormTexts texts = formTexts();
  user.key("ctrl+w");
  answerDialogs();
  savedOnLeaving(company, texts, !isOpen());
}

void RandomActions::openOtherCompany() {
  const QString company = openPath();
  const QString other = path(company == path() ? "bakery.company" : "joinery.company");
  note("opens " + QFileInfo(other).fileName().toStdString());
  const FormTexts texts = formTexts();
  user.key("ctrl+o");
  user.choosesFile(other);
  answerDialogs();
  savedOnLeaving(company, texts, openPath() != company);
  if (openPath() != company) edited_.reset();
}

void RandomActions::quitAndStartAgain() {
  note("quits");
  const QString company = openPath();
  const FormTexts texts = formTexts();
  user.key("ctrl+q");
  answerDialogs();
  const bool left = gui([this] { return !window->isVisible(); });
  savedOnLeaving(company, texts, left);
  if (!left) return;
  note("starts again");
  gui([this] { window.reset(); });
  open();
}

void RandomActions::startCalculatorAnew() {
  note("starts the calculator anew");
  const FormTexts texts = formTexts();
  const QString company = openPath();
  menu("Depreciation Calculator");
  answerDialogs();
  savedOnLeaving(company, texts, shown() == "DepCalcView1");
  if (formIsBlank() && !answered("Save Changes", "Cancel")) edited_.reset();
}

void RandomActions::switchMode() {
  const bool works = !shown().empty();
  note(works ? "switches to multi-user mode" : "switches to single-user mode");
  const FormTexts texts = formTexts();
  const QString company = openPath();
  menu(works ? "Switch to Multi-user Mode" : "Switch to Single-user Mode");
  answerDialogs();
  savedOnLeaving(company, texts, works && shown().empty());
  if (!works) edited_.reset();
}

}  // namespace depcalc::testing
