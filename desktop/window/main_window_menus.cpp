#include <QApplication>
#include <QMenuBar>

#include "desktop/host/place.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/main_window.h"
#include "help/help_topics.h"

namespace depcalc::desktop {

// The letters of the menus are none that the calculator's own buttons and tabs use.
void MainWindow::makeMenus() {
  makeFileMenu();
  QMenu& edit = *menuBar()->addMenu(tr("Ed&it"));
  undo_menu_ = new UndoMenu(edit, {.undo = [this] { undo(); },
                                   .redo = [this] { redo(); },
                                   .history = [this] { showHistory(); }});
  edit_menu_ = new EditMenu(edit, [this] { return calculator(); });
  makeCompanyMenu();
  makeAssetMenu();
  makeReportsMenu();
  QMenu& view = *menuBar()->addMenu(tr("Vie&w"));
  view_menu_ = new ViewMenu(view, around_.settings, *page_);
  makeWorkspace(edit, view);
  edit.addSeparator();
  addAction(edit, tr("Pr&eferences…"), QKeySequence(Qt::CTRL | Qt::Key_Comma),
            &MainWindow::askPreferences);
  fillToolbar();
  makeHelpMenu();
  for (QMenu* menu : findChildren<QMenu*>()) menu->setAccessibleName(menu->title().remove(u'&'));
}

QAction* MainWindow::addAction(QMenu& menu, const QString& text, const QKeySequence& key,
                               void (MainWindow::*act)()) {
  QAction* const action = menu.addAction(text);
  if (!key.isEmpty()) action->setShortcut(key);
  connect(action, &QAction::triggered, this, act);
  return action;
}

void MainWindow::makeFileMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&File"));
  new_company_ =
      addAction(menu, tr("&New Company…"), QKeySequence::New, &MainWindow::askNewCompany);
  open_company_ =
      addAction(menu, tr("&Open Company…"), QKeySequence::Open, &MainWindow::askOpenCompany);
  addAction(menu, tr("Open from S&erver…"), {}, &MainWindow::askOpenFromServer);
  recent_menu_ = menu.addMenu(tr("&Recent Companies"));
  connect(recent_menu_, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
  company_actions_ << addAction(menu, tr("&Close Company"), QKeySequence::Close,
                                &MainWindow::closeCompany);
  company_actions_ << addAction(menu, tr("Save a Copy &As…"), {}, &MainWindow::askCopy);
  addAction(menu, tr("Restore &Backup…"), {}, &MainWindow::askBackup);
  menu.addSeparator();
  import_ =
      addAction(menu, tr("&Import…"), QKeySequence(Qt::CTRL | Qt::Key_I), &MainWindow::askImport);
  menu.addSeparator();
  to_multi_user_ = menu.addAction(tr("Switch to &Multi-user Mode"));
  to_single_user_ = menu.addAction(tr("Switch to &Single-user Mode"));
  connect(to_multi_user_, &QAction::triggered, this, [this] { setMultiUser(true); });
  connect(to_single_user_, &QAction::triggered, this, [this] { setMultiUser(false); });
  menu.addSeparator();
  print_actions_ << addAction(menu, tr("&Print…"), QKeySequence::Print, &MainWindow::print)
                 << addAction(menu, tr("Print Pre&view…"), {}, &MainWindow::previewPrint);
  menu.addSeparator();
  QAction* const quit = menu.addAction(tr("&Quit"));
  quit->setShortcut(QKeySequence::Quit);
  connect(quit, &QAction::triggered, this, &QWidget::close);
}

void MainWindow::makeCompanyMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("Co&mpany"));
  company_actions_ << addAction(menu, tr("Company &Info…"), {}, &MainWindow::askCompanyInfo);
  recalculate_ = addAction(menu, tr("&Recalculate All Assets…"), {}, &MainWindow::askRecalculation);
  // Without a company the calculator itself says what is missing.
  addAction(menu, tr("&Depreciation Calculator"), {}, &MainWindow::startCalculator);
}

void MainWindow::makeAssetMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&Asset"));
  asset_menu_ = new AssetMenu(menu, [this] { return calculator(); });
  menu.addSeparator();
  dispose_ = addAction(menu, tr("D&ispose…"), {}, &MainWindow::askDisposal);
  undo_disposal_ = addAction(menu, tr("&Undo Disposal"), {}, &MainWindow::undoDisposal);
  units_ = addAction(menu, tr("Units &Produced…"), {}, &MainWindow::askUnits);
}

void MainWindow::makeHelpMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&Help"));
  const auto add = [this, &menu](const QString& text, int link) {
    connect(menu.addAction(text), &QAction::triggered, this, [this, link] { showHelpTopic(link); });
  };
  addAction(menu, tr("&Guide"), {}, &MainWindow::openGuideHere);
  sample_company_ =
      addAction(menu, tr("Open the &Sample Company"), {}, &MainWindow::openSampleCompany);
  menu.addSeparator();
  add(tr("&Using This Calculator"), -1);
  int link = 0;
  for (const HelpLink& topic : helpLinks()) add(qtText(topic.caption), link++);
  menu.addSeparator();
  addAction(menu, tr("&About"), {}, &MainWindow::showAbout);
}

void MainWindow::fillRecentMenu() {
  recent_menu_->clear();
  int number = 0;
  for (const QString& path : around_.settings.recent()) {
    const QString name = titleAt(nameAt(path), path).replace(u'&', QStringLiteral("&&"));
    QAction* const action = recent_menu_->addAction(tr("&%1 %2").arg(++number).arg(name));
    action->setToolTip(toolTipText(path));
    connect(action, &QAction::triggered, this, [this, path] { openCompany(path); });
  }
  recent_menu_->setToolTipsVisible(true);
  if (number == 0) recent_menu_->addAction(tr("None yet"))->setEnabled(false);
}

void MainWindow::enableActions() {
  undo_menu_->follow(application_->recorder());
  edit_menu_->enable();
  asset_menu_->enable();
  const bool open = company() != nullptr;
  const bool multi = open && application_->CompanyFile()->IsMultiUser();
  for (QAction* action : company_actions_ + report_actions_) action->setEnabled(open);
  const bool assets = calculator_ != nullptr && calculator_->assetCount().value_or(0) > 0;
  for (QAction* action : print_actions_) action->setEnabled(assets);
  recalculate_->setEnabled(assets);
  import_->setEnabled(calculator_ != nullptr);
  const bool saved_asset = calculator_ != nullptr && calculator_->currentAsset();
  dispose_->setEnabled(saved_asset);
  units_->setEnabled(saved_asset);
  undo_disposal_->setEnabled(saved_asset && isCurrentAssetDisposed());
  to_multi_user_->setVisible(!multi);
  to_multi_user_->setEnabled(open);
  to_single_user_->setVisible(multi);
}

}  // namespace depcalc::desktop
