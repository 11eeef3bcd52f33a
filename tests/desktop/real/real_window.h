// The host's real window on company files, and the user before it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QTableView>
#include <QTemporaryDir>
#include <memory>
#include <string>
#include <vector>

#include "compare/dep_calc_display_ctl.h"
#include "desktop/host/stored_companies.h"
#include "desktop/window/main_window.h"
#include "entry/dep_calc_ctl.h"
#include "register/dep_calc_view.h"
#include "tests/desktop/real/real_user.h"

namespace depcalc::testing {

/// Tests run beside the window's thread: what they look at in it they look at through `gui`. A
/// failed test leaves a picture of the screen in the directory that DEPCALC_SHOTS names.
struct RealWindow : ::testing::Test {
  RealWindow();
  ~RealWindow() override;

  /// Another window in the place of this one, as after a restart of the program.
  void restart();
  /// Puts up the window that the tests begin with; a test of start-ups does it itself.
  void open();

  [[nodiscard]] QString path(const QString& name = "joinery.company") const {
    return directory.filePath(name);
  }
  /// A company in the window, as File > New Company makes it, but without its dialogs.
  void newCompany(const QString& name = "joinery.company", int first_month = 4);
  /// A company file with assets in it, made by the command, not open in the window.
  void makeCompany(const QString& path, const QByteArray& csv_rows);
  void openCompany(const QString& path);

  /// The name of the screen that shows: "DepCalcCtl1", "DepCalcDisplayCtl1", "DepCalcView1".
  std::string shown();
  template <typename Screen>
  Screen& screen(const char* name) {
    return dynamic_cast<Screen&>(*window->calculator()->container().child(name));
  }
  DepCalcCtl& form() { return screen<DepCalcCtl>("DepCalcCtl1"); }
  DepCalcDisplayCtl& comparison() { return screen<DepCalcDisplayCtl>("DepCalcDisplayCtl1"); }
  DepCalcView& assets() { return screen<DepCalcView>("DepCalcView1"); }
  /// The text of one of the form's fields, as the calculator has it.
  std::string text(TextBox DepCalcCtl::*field);
  void click(const Control& control);
  void clickCell(int row, int column);
  /// Chooses a menu's item; it may open a dialog.
  void menu(const char* item);
  /// Types into the form, field by field from the one that has the focus; "" leaves one as it is.
  void enterAsset(std::initializer_list<const char*> fields);

  /// The `depcalc` command as a second program: its exit status, and what it said.
  int depcalc(const QStringList& arguments);
  QString said;
  /// The IDs of the assets in a company file, by a look at a copy of it: the file may be open.
  std::vector<std::string> idsIn(const QString& company);

  RealUser user;
  QTemporaryDir directory;
  std::unique_ptr<desktop::StoredCompanies> companies;
  std::unique_ptr<desktop::Settings> settings;
  std::unique_ptr<desktop::Backups> backups;
  std::unique_ptr<desktop::MainWindow> window;
};

}  // namespace depcalc::testing
