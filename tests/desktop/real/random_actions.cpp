#include "tests/desktop/real/random_actions.h"

#include <QDir>
#include <QFile>

namespace depcalc::testing {
namespace {

constexpr std::size_t many_assets = 7;

bool dialogIsOpen() {
  return gui([] { return QApplication::activeModalWidget() != nullptr; });
}

/// What Escape means to a message box.
QString escapeOf(const QStringList& buttons) {
  if (buttons.contains(QStringLiteral("Cancel"))) return QStringLiteral("Cancel");
  return buttons.size() == 1 ? buttons.front() : QStringLiteral("No");
}

}  // namespace

RandomActions::RandomActions() {
  // Where the file dialogs begin: they list the open company's own folder.
  QDir::setCurrent(directory.path());
  for (const char* name : {"joinery.company", "bakery.company"}) {
    const QString company = path(QString::fromUtf8(name));
    EXPECT_EQ(depcalc({"new", company, "--name", name, "--first-month", "April"}), 0);
    rows_[company] = {};
  }
}

void RandomActions::walk(unsigned seed, int actions) {
  random_.seed(seed);
  openCompany(path());
  for (int i = 0; i < actions; ++i) {
    step();
    if (HasFailure()) {
      ADD_FAILURE() << "seed " << seed << ", action " << i + 1 << " of\n" << script_;
      return;
    }
  }
  EXPECT_GT(changes_, actions / 20) << "seed " << seed << " brought about too little:\n" << script_;
  RecordProperty("changes", changes_);
}

void RandomActions::step() {
  answers_.clear();
  told_.clear();
  stays_ = false;
  const std::vector<std::string> before = seen();
  act();
  answerDialogs();
  if (stays_) {
    EXPECT_EQ(seen(), before) << "nothing was done to what is shown";
  }
  checkFiles();
  if (shown() == "DepCalcView1") checkRegister();
}

void RandomActions::oneOfActions(std::initializer_list<Choice> choices) {
  int all = 0;
  for (const Choice& choice : choices) all += choice.weight;
  int drawn = below(all);
  for (const Choice& choice : choices) {
    drawn -= choice.weight;
    if (drawn < 0) return (this->*choice.act)();
  }
}

void RandomActions::act() {
  using Self = RandomActions;
  if (chance(20)) {
    return oneOfActions({{4, &Self::cancelDialog},
                         {2, &Self::minimise},
                         {1, &Self::resizeWindow},
                         {2, &Self::zoom},
                         {2, &Self::help},
                         {4, &Self::secondProgramTries}});
  }
  const std::string screen = shown();
  const bool leaves = chance(6) || screen.empty();
  if (leaves && isOpen()) {
    oneOfActions({{2, &Self::closeCompany},
                  {2, &Self::openOtherCompany},
                  {1, &Self::quitAndStartAgain},
                  {1, &Self::startCalculatorAnew},
                  {screen.empty() ? 6 : 1, &Self::switchMode}});
  } else if (leaves) {
    openOtherCompany();
  } else if (screen == "DepCalcCtl1" && formIsBlank() && chance(60)) {
    fillForm();
  } else if (screen == "DepCalcCtl1") {
    oneOfActions({{5, &Self::typeIntoField},
                  {1, &Self::chooseConvention},
                  {2, &Self::typeWithoutLeaving},
                  {2, &Self::fillForm},
                  {7, &Self::saveForm},
                  {7, &Self::calculate},
                  {2, &Self::newFromForm},
                  {2, &Self::viewAllFromForm}});
  } else if (screen == "DepCalcDisplayCtl1") {
    oneOfActions({{4, &Self::chooseMethod},
                  {4, &Self::saveComparison},
                  {1, &Self::closeComparison},
                  {1, &Self::viewAllFromComparison}});
  } else if (rows_[openPath()].empty()) {
    newAsset();
  } else {
    const int crowd = rows_[openPath()].size() > many_assets ? 8 : 1;
    oneOfActions({{4, &Self::selectAsset},
                  {4, &Self::newAsset},
                  {4, &Self::editAsset},
                  {2 * crowd, &Self::deleteAsset},
                  {1, &Self::printAsset}});
  }
}

void RandomActions::answerDialogs() {
  for (int i = 0; i < 20 && dialogIsOpen(); ++i) {
    const SeenDialog seen = user.dialog();
    if (seen.kind.isEmpty()) continue;
    if (seen.kind == "QMessageBox") {
      answerBox(seen);
    } else {
      // A file dialog has read the folder of the open company by then.
      note("  leaves " + seen.title.toStdString());
      user.key("Escape");
    }
  }
  EXPECT_FALSE(dialogIsOpen());
}

void RandomActions::answerBox(const SeenDialog& box) {
  const bool by_key = chance(25);
  const QString answer = by_key ? escapeOf(box.buttons) : oneOf(box.buttons);
  note("  box " + box.title.toStdString() + " | " + box.text.toStdString() + " -> " +
       answer.toStdString());
  answers_.emplace_back(box.title, answer);
  if (by_key) {
    user.key("Escape");
  } else {
    EXPECT_TRUE(user.answers(answer));
  }
}

bool RandomActions::answered(const QString& title, const QString& answer) const {
  for (const auto& [asked, given] : answers_) {
    if (asked.startsWith(title) && given == answer) return true;
  }
  return false;
}

Rows RandomActions::rowsIn(const QString& company) {
  const QString copy = path("look.copy");
  QFile::remove(copy);
  // By another process: a look from this one would itself drop locks.
  EXPECT_EQ(RealUser::runs("cp", {company, copy}), 0);
  EXPECT_EQ(depcalc({"list", copy, "--format", "csv"}), 0) << said.toStdString();
  return rowsOf(said);
}

void RandomActions::checkFiles() {
  for (auto& [company, rows] : rows_) {
    const Rows held = rowsIn(company);
    const Told& told = told_[company];
    EXPECT_EQ(wrongIn(rows, told, held), "") << company.toStdString();
    changes_ += told.what == Told::What::nothing ? 0 : 1;
    rows = held;
  }
}

/// The register shows what the file holds.
void RandomActions::checkRegister() {
  const auto columns = gui([this] {
    constexpr std::pair<int, const char*> fields[] = {
        {0, "id"},    {1, "name"},    {2, "serial"}, {3, "department"}, {4, "placed_in_service"},
        {5, "basis"}, {6, "salvage"}, {9, "life"}};
    std::vector<FormTexts> shown;
    const Grid& table = assets().AssetViewTable;
    for (int column = 1; table.visible() && column < table.columns(); ++column) {
      FormTexts& asset = shown.emplace_back();
      for (const auto& [row, name] : fields) asset[name] = table.text(row, column);
    }
    return shown;
  });
  const Rows& rows = rows_[openPath()];
  ASSERT_EQ(columns.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(wrongIn(rows[i], columns[i]), "");
}

}  // namespace depcalc::testing
