// crash_driver FILE.company DIRECTORY SEED: enters and deletes assets in the real window until it
// is killed. Says before each step what it is about to do, and behind it what is done.
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "desktop/host/stored_companies.h"
#include "desktop/window/main_window.h"
#include "entry/dep_calc_ctl.h"

namespace depcalc::testing {
namespace {

void say(const char* what, const std::string& id) {
  std::printf("%s %s\n", what, id.c_str());
  std::fflush(stdout);
}

class Driver {
 public:
  Driver(desktop::MainWindow& window, unsigned seed) : window_(window), random_(seed) {}

  void step() {
    const int assets = calculator().assetCount().value();
    const bool adds = assets == 0 || (assets < 12 && random_() % 5 < 3);
    adds ? add() : remove(1 + static_cast<int>(random_() % static_cast<unsigned long>(assets)));
  }

 private:
  desktop::Calculator& calculator() { return *window_.calculator(); }
  DepCalcView& assets() { return *calculator().assetRegister(); }
  DepCalcCtl& form() {
    return dynamic_cast<DepCalcCtl&>(*calculator().container().child("DepCalcCtl1"));
  }
  template <typename Action>
  void user(Action action) {
    calculator().surface().act(action);
    for (int i = 0; i < 2; ++i) QApplication::processEvents();
  }
  void fill(TextBox& box, const std::string& text) {
    user([&](User& user) {
      user.moveFocus(box);
      user.edit(box, text);
    });
  }

  void add() {
    if (assets().isShown()) user([this](User& user) { user.click(assets().NewButton.normal); });
    const auto number = static_cast<unsigned>(random_() % 1'000'000);
    const std::string id = "A-" + std::to_string(number);
    fill(form().IDText, id);
    fill(form().StartDateText, "3/15/2024");
    fill(form().DRecoveryText, std::to_string(1 + number % 50));
    fill(form().BasisText, std::to_string(1 + number));
    fill(form().SalvageText, "0");
    say("saving", id);
    user([this](User& user) { user.click(form().SaveButton.normal); });
    if (!assets().isShown()) std::abort();
    say("saved", id);
  }

  void remove(int column) {
    Grid& table = assets().AssetViewTable;
    const std::string id(table.text(0, column));
    user([&](User& user) { user.clickCell(table, 0, column); });
    say("deleting", id);
    user([this](User& user) { user.click(assets().DeleteButton.normal); });
    say("deleted", id);
  }

  desktop::MainWindow& window_;
  std::mt19937 random_;
};

/// Says what a box says; every question is answered with Yes.
void answerBoxes() {
  auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (box == nullptr) return;
  say("box", box->text().toStdString());
  QAbstractButton* const yes = box->button(QMessageBox::Yes);
  (yes != nullptr ? yes : box->buttons().last())->click();
}

int drive(const QString& company, const QString& directory, unsigned seed) {
  desktop::StoredCompanies files([] { return Date::strict(2024, 6, 15); });
  desktop::Settings settings(directory + QStringLiteral("/settings.ini"));
  desktop::Backups backups(directory + QStringLiteral("/backups"));
  desktop::MainWindow window(
      {files, settings, backups, [] { return Date::strict(2024, 6, 15); }, "/"});
  window.show();
  QTimer boxes;
  QObject::connect(&boxes, &QTimer::timeout, answerBoxes);
  boxes.start(1);
  if (!window.openCompany(company)) {
    say("refused", "");
    return EXIT_FAILURE;
  }
  QApplication::processEvents();
  say("ready", "");
  for (Driver driver(window, seed);;) driver.step();
}

}  // namespace
}  // namespace depcalc::testing

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  if (argc != 4) return EXIT_FAILURE;
  return depcalc::testing::drive(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]),
                                 static_cast<unsigned>(std::strtoul(argv[3], nullptr, 10)));
}
