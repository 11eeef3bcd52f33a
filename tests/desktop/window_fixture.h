// The host's window, with companies in memory unless a test has others, and a user who answers its
// boxes.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

#include "compare/dep_calc_display_ctl.h"
#include "desktop/window/main_window.h"
#include "entry/dep_calc_ctl.h"
#include "help/dep_calc_popup.h"
#include "tests/desktop/boxes.h"
#include "tests/desktop/memory_companies.h"

namespace depcalc::testing {

/// `Companies` is, or becomes, what the window opens companies by.
template <typename Companies>
struct WindowWith : ::testing::Test {
  WindowWith() {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  QString path(const char* name = "joinery") const { return directory.filePath(name); }
  void newCompany(const char* name = "joinery", int first_month = 4) {
    ASSERT_TRUE(window.createCompany(path(name), {"Sample Joinery", first_month}));
    settle();
  }

  /// After a box has closed no window manager is here to give the window its turn again.
  void settle() {
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
    if (QApplication::focusWidget() != nullptr || !window.isVisible()) return;
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  desktop::Calculator& calculator() { return *window.calculator(); }
  template <typename Screen>
  Screen& screen(const char* name) {
    return dynamic_cast<Screen&>(*calculator().container().child(name));
  }
  DepCalcCtl& form() { return screen<DepCalcCtl>("DepCalcCtl1"); }
  DepCalcDisplayCtl& comparison() { return screen<DepCalcDisplayCtl>("DepCalcDisplayCtl1"); }
  DepCalcView& assets() { return screen<DepCalcView>("DepCalcView1"); }
  DepCalcPopup& popup() { return screen<DepCalcPopup>("DepCalcPopup1"); }
  std::string shown() {
    const UserControl* const at = calculator().container().visibleScreen();
    return at == nullptr ? "" : at->name();
  }
  std::string focused() {
    const InputControl* const at = calculator().stage().focused();
    return at == nullptr ? "" : at->name();
  }

  QWidget& widget(const Control& control) { return *calculator().surface().widget(control); }
  void click(const Control& control) {
    QTest::mouseClick(&widget(control), Qt::LeftButton);
    settle();
  }
  void clickCell(int row, int column) {
    auto& view = dynamic_cast<QTableView&>(widget(assets().AssetViewTable));
    const QRect cell = view.visualRect(view.model()->index(row, column));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    settle();
  }
  void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    settle();
  }
  /// Types into the field that has the focus, in the place of what it holds, and goes on. In a
  /// list, goes to the item of that text.
  void fill(const QString& text) {
    if (auto* const list = qobject_cast<QComboBox*>(QApplication::focusWidget())) {
      for (int i = 0; i < list->count(); ++i) key(Qt::Key_Up);
      while (!text.isEmpty() && list->currentText() != text) key(Qt::Key_Down);
    } else {
      key(Qt::Key_A, Qt::ControlModifier);
      if (text.isEmpty()) key(Qt::Key_Delete);
      type(text);
    }
    key(Qt::Key_Tab);
  }
  /// A box may come up at every key.
  void type(const QString& text) {
    for (const QChar character : text) {
      QTest::keyClick(QApplication::focusWidget(), character.toLatin1());
      settle();
    }
  }
  void enterAsset(std::initializer_list<const char*> fields) {
    for (const char* text : fields) fill(text);
  }
  void goTo(const std::string& field) {
    const auto there = [&] { return QApplication::focusWidget()->objectName().toStdString(); };
    for (int i = 0; i < 24 && there() != field; ++i) key(Qt::Key_Tab);
    ASSERT_EQ(there(), field);
    ASSERT_EQ(focused(), field);
  }
  void enterTruck() {
    enterAsset({"TRK-014", "Delivery truck", "1FTYR10D", "Warehouse", "9/15/2023", "April", "5",
                "Half Year", "38450", "4000", "150000"});
  }
  void compareTruck() {
    enterTruck();
    key(Qt::Key_C, Qt::AltModifier);
    ASSERT_EQ(shown(), "DepCalcDisplayCtl1");
  }
  void saveTruck() {
    enterTruck();
    key(Qt::Key_S, Qt::AltModifier);
    ASSERT_EQ(shown(), "DepCalcView1");
  }
  /// Runs `look` on the dialog that `open` brings up, and closes it.
  template <typename Open, typename Look>
  void onDialog(Open open, Look look) {
    bool seen = false;
    boxes.answering = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr || !dialog->isVisible() || seen) return;
      seen = true;
      look(*dialog);
      if (dialog->isVisible()) dialog->reject();
    });
    timer.start(20);
    open();
    EXPECT_TRUE(seen);
    boxes.answering = true;
    settle();
  }
  /// An item by its text, else a menu: the menu Edit is not the item Edit.
  QAction& action(const char* text) {
    QAction* menu = nullptr;
    for (QAction* found : window.findChildren<QAction*>()) {
      if (QString(found->text()).remove(u'&') != QString::fromUtf8(text)) continue;
      if (found->menu() == nullptr) return *found;
      menu = found;
    }
    if (menu != nullptr) return *menu;
    ADD_FAILURE() << text;
    return *window.findChild<QAction*>();
  }
  QString status(int label) {
    return window.statusBar()->findChildren<QLabel*>().at(label)->text();
  }

  QTemporaryDir directory;
  Companies companies;
  desktop::Settings settings{directory.filePath("settings.ini")};
  desktop::Backups backups{directory.filePath("backups")};
  Boxes boxes;
  desktop::MainWindow window{
      {companies, settings, backups, [] { return Date::strict(2024, 6, 15); }, "/start"}};
};

using WindowTest = WindowWith<MemoryCompanies>;

}  // namespace depcalc::testing
