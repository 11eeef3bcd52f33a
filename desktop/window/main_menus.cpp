#include "desktop/window/main_menus.h"

#include <QMenuBar>
#include <utility>

#include "desktop/widgets/text_block.h"
#include "desktop/window/recent_menu.h"
#include "help/help_topics.h"

namespace depcalc::desktop {

MainMenus::MainMenus(QMenuBar& bar, Doors doors, Settings& settings, Page& page)
    : QObject(&bar), doors_(std::move(doors)) {
  fillFileMenu(*bar.addMenu(tr("&File")), settings);
  edit_ = bar.addMenu(tr("Ed&it"));
  undo_menu_ = new UndoMenu(*edit_, doors_.undo);
  edit_menu_ = new EditMenu(*edit_, doors_.calculator);
  fillCompanyMenu(*bar.addMenu(tr("Co&mpany")));
  fillAssetMenu(*bar.addMenu(tr("&Asset")));
  fillReportsMenu(*bar.addMenu(tr("&Reports")));
  view_ = bar.addMenu(tr("Vie&w"));
  view_menu_ = new ViewMenu(*view_, settings, page);
  fillHelpMenu(*bar.addMenu(tr("&Help")));
}

void MainMenus::finish() {
  edit_->addSeparator();
  add(*edit_, tr("Pr&eferences…"), QKeySequence(Qt::CTRL | Qt::Key_Comma), doors_.preferences);
}

QAction* MainMenus::add(QMenu& menu, const QString& text, const QKeySequence& key, const Act& act) {
  QAction* const action = menu.addAction(text);
  if (!key.isEmpty()) action->setShortcut(key);
  connect(action, &QAction::triggered, this, act);
  return action;
}

void MainMenus::fillFileMenu(QMenu& menu, const Settings& settings) {
  offered_.new_company = add(menu, tr("&New Company…"), QKeySequence::New, doors_.new_company);
  offered_.open_company = add(menu, tr("&Open Company…"), QKeySequence::Open, doors_.open_company);
  add(menu, tr("Open from S&erver…"), {}, doors_.open_from_server);
  auto* const recent = new RecentMenu(*menu.addMenu(tr("&Recent Companies")), settings);
  connect(recent, &RecentMenu::chosen, this, doors_.open);
  needs_.add(Need::company,
             add(menu, tr("&Close Company"), QKeySequence::Close, doors_.close_company));
  needs_.add(Need::company, add(menu, tr("Save a Copy &As…"), {}, doors_.save_copy));
  add(menu, tr("Restore &Backup…"), {}, doors_.restore_backup);
  menu.addSeparator();
  offered_.import = add(menu, tr("&Import…"), QKeySequence(Qt::CTRL | Qt::Key_I), doors_.import);
  needs_.add(Need::calculator, offered_.import);
  menu.addSeparator();
  addModes(menu);
  menu.addSeparator();
  offered_.print = add(menu, tr("&Print…"), QKeySequence::Print, doors_.print);
  needs_.add(Need::assets, offered_.print);
  needs_.add(Need::assets, add(menu, tr("Print Pre&view…"), {}, doors_.preview));
  menu.addSeparator();
  add(menu, tr("&Quit"), QKeySequence::Quit, doors_.quit);
}

void MainMenus::addModes(QMenu& menu) {
  const auto set = [this](bool on) { return [this, on] { doors_.set_multi_user(on); }; };
  to_multi_user_ = add(menu, tr("Switch to &Multi-user Mode"), {}, set(true));
  needs_.add(Need::company, to_multi_user_);
  offered_.to_single_user = add(menu, tr("Switch to &Single-user Mode"), {}, set(false));
}

void MainMenus::fillCompanyMenu(QMenu& menu) {
  needs_.add(Need::company, add(menu, tr("Company &Info…"), {}, doors_.company_info));
  needs_.add(Need::assets, add(menu, tr("&Recalculate All Assets…"), {}, doors_.recalculate));
  // Without a company the calculator itself says what is missing.
  add(menu, tr("&Depreciation Calculator"), {}, doors_.start_calculator);
}

void MainMenus::fillAssetMenu(QMenu& menu) {
  asset_menu_ = new AssetMenu(menu, doors_.calculator);
  menu.addSeparator();
  offered_.dispose = add(menu, tr("D&ispose…"), {}, doors_.dispose);
  needs_.add(Need::saved_asset, offered_.dispose);
  needs_.add(Need::disposed_asset, add(menu, tr("&Undo Disposal"), {}, doors_.undo_disposal));
  needs_.add(Need::saved_asset, add(menu, tr("Units &Produced…"), {}, doors_.units));
}

void MainMenus::fillReportsMenu(QMenu& menu) {
  const std::pair<QString, ReportKind> kinds[] = {
      {tr("&Depreciation Schedule…"), ReportKind::schedule},
      {tr("All &Fiscal Years…"), ReportKind::years},
      {tr("&Roll-forward…"), ReportKind::rollforward},
      {tr("&Journal Entry…"), ReportKind::journal},
      {tr("Asset &Card…"), ReportKind::asset},
      {tr("Register Chec&k…"), ReportKind::check}};
  for (const auto& [caption, kind] : kinds) {
    needs_.add(Need::company, add(menu, caption, {}, [this, kind = kind] { doors_.report(kind); }));
  }
  offered_.report = menu.actions().first();
}

void MainMenus::fillHelpMenu(QMenu& menu) {
  add(menu, tr("&Guide"), {}, doors_.guide);
  offered_.sample_company = add(menu, tr("Open the &Sample Company"), {}, doors_.sample_company);
  menu.addSeparator();
  const auto show = [this](int link) { return [this, link] { doors_.topic(link); }; };
  add(menu, tr("&Using This Calculator"), {}, show(-1));
  int link = 0;
  for (const HelpLink& topic : helpLinks()) add(menu, qtText(topic.caption), {}, show(link++));
  menu.addSeparator();
  add(menu, tr("&About"), {}, doors_.about);
}

void MainMenus::follow(const Recorder* recorder, const std::function<bool(Need)>& is_there,
                       bool multi_user) {
  undo_menu_->follow(recorder);
  edit_menu_->enable();
  asset_menu_->enable();
  needs_.follow(is_there);
  to_multi_user_->setVisible(!multi_user);
  offered_.to_single_user->setVisible(multi_user);
}

}  // namespace depcalc::desktop
