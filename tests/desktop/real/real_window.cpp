#include "tests/desktop/real/real_window.h"

#include <QDialog>
#include <QDir>
#include <QFile>

namespace depcalc::testing {
namespace {

Date today() { return Date::strict(2024, 6, 15); }

/// A test that failed may have left one open; another may be below it.
void closeDialogs(RealUser& user) {
  for (int i = 0; i < 10; ++i) {
    const bool closed = gui([] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog != nullptr) dialog->reject();
      return dialog == nullptr;
    });
    if (closed) return;
    user.settles();
  }
}

}  // namespace

RealWindow::RealWindow() {
  gui([this] {
    companies = std::make_unique<desktop::StoredCompanies>(today);
    settings = std::make_unique<desktop::Settings>(directory.filePath("settings.ini"));
    backups = std::make_unique<desktop::Backups>(directory.filePath("backups"));
  });
  open();
}

RealWindow::~RealWindow() {
  const QString shots = qEnvironmentVariable("DEPCALC_SHOTS");
  if (HasFailure() && !shots.isEmpty()) {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    user.photographs(QDir(shots).filePath(QString::fromUtf8(test->name()) + ".png"));
  }
  closeDialogs(user);
  gui([this] { window.reset(); });
}

void RealWindow::open() {
  gui([this] {
    window = std::make_unique<desktop::MainWindow>(desktop::MainWindow::Surroundings{
        *companies, *settings, *backups, today, directory.path().toStdString(),
        QStringLiteral(DEPCALC_SHARED), directory.filePath("Documents")});
    window->show();
  });
  EXPECT_TRUE(user.sees([this] { return window->isActiveWindow(); }));
  user.settles();
}

void RealWindow::restart() {
  gui([this] {
    window->close();
    window.reset();
  });
  open();
}

void RealWindow::newCompany(const QString& name, int first_month) {
  const QString place = path(name);
  ASSERT_TRUE(gui([&] { return window->createCompany(place, {"Sample Joinery", first_month}); }));
  user.settles();
}

void RealWindow::makeCompany(const QString& place, const QByteArray& csv_rows) {
  ASSERT_EQ(depcalc({"new", place, "--name", "Sample Joinery", "--first-month", "April"}), 0)
      << said.toStdString();
  QFile csv(path("rows.csv"));
  ASSERT_TRUE(csv.open(QIODevice::WriteOnly));
  csv.write(csv_rows);
  csv.close();
  ASSERT_EQ(depcalc({"import", place, csv.fileName()}), 0) << said.toStdString();
}

void RealWindow::openCompany(const QString& place) {
  ASSERT_TRUE(gui([&] { return window->openCompany(place); }));
  user.settles();
}

std::string RealWindow::shown() {
  return gui([this]() -> std::string {
    if (window->calculator() == nullptr) return "";
    const UserControl* const at = window->calculator()->container().visibleScreen();
    return at == nullptr ? "" : at->name();
  });
}

std::string RealWindow::text(TextBox DepCalcCtl::*field) {
  return gui([&] { return (form().*field).text(); });
}

void RealWindow::click(const Control& control) {
  QWidget* const widget = gui([&] { return window->calculator()->surface().widget(control); });
  ASSERT_NE(widget, nullptr) << control.name();
  user.clicks(widget);
}

void RealWindow::clickCell(int row, int column) {
  QWidget* viewport = nullptr;
  const QPoint place = gui([&] {
    auto& view =
        dynamic_cast<QTableView&>(*window->calculator()->surface().widget(assets().AssetViewTable));
    viewport = view.viewport();
    return view.visualRect(view.model()->index(row, column)).center();
  });
  user.clicks(viewport, place);
}

void RealWindow::menu(const char* item) {
  const bool found = gui([&] {
    for (QAction* action : window->findChildren<QAction*>()) {
      if (action->text().remove(u'&') != QString::fromUtf8(item)) continue;
      // Not at once: what it opens would keep this call from returning.
      QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
      return true;
    }
    return false;
  });
  EXPECT_TRUE(found) << item;
  user.settles();
}

void RealWindow::enterAsset(std::initializer_list<const char*> fields) {
  QStringList texts;
  for (const char* text : fields) {
    texts << (*text == '\0' ? QString() : QString::fromUtf8(text));
  }
  user.fillsAll(texts);
}

int RealWindow::depcalc(const QStringList& arguments) {
  return RealUser::runs(QStringLiteral(DEPCALC_COMMAND), arguments, &said);
}

std::vector<std::string> RealWindow::idsIn(const QString& company) {
  const QString copy = path("look.company");
  QFile::remove(copy);
  // By another process: a look from this one would itself drop locks.
  EXPECT_EQ(RealUser::runs("cp", {company, copy}), 0);
  EXPECT_EQ(depcalc({"list", copy, "--format", "csv"}), 0) << said.toStdString();
  std::vector<std::string> ids;
  for (const QString& line : said.split(u'\n', Qt::SkipEmptyParts).mid(1)) {
    ids.push_back(line.section(u',', 0, 0).toStdString());
  }
  return ids;
}

}  // namespace depcalc::testing
