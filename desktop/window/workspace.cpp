#include "desktop/window/workspace.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <chrono>
#include <vector>

#include "controls/page_style.h"
#include "desktop/window/calculator.h"
#include "desktop/window/side_dock.h"
#include "desktop/workspace/first_docks.h"
#include "desktop/workspace/stroke_icon.h"

namespace depcalc::desktop {
namespace {

const QString toolbar_part = QStringLiteral("toolbar");
const QString assets_part = QStringLiteral("assets");
const QString insight_part = QStringLiteral("insight");

constexpr std::chrono::milliseconds question_pause(200);
constexpr int icon_side = 18;  // pixels

bool stands(const QDockWidget* dock) { return dock != nullptr && !dock->isHidden(); }

QToolBar* emptyToolbar(QMainWindow& window) {
  auto* const toolbar = new QToolBar(QObject::tr("Toolbar"), &window);
  toolbar->setObjectName(QStringLiteral("Toolbar"));
  toolbar->setAccessibleName(QObject::tr("Toolbar"));
  toolbar->setMovable(false);
  toolbar->setIconSize({icon_side, icon_side});
  toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  for (auto* more : toolbar->findChildren<QToolButton*>()) {
    more->setAccessibleName(QObject::tr("More"));
  }
  window.addToolBar(toolbar);
  return toolbar;
}

}  // namespace

Workspace::Workspace(QMainWindow& window, const Menus& menus, Settings& settings, Doors doors)
    : QObject(&window),
      window_(window),
      settings_(settings),
      doors_(std::move(doors)),
      following_(doors_.read) {
  // Each part has its item in the View menu; a second menu of them has no place.
  window.setContextMenuPolicy(Qt::NoContextMenu);
  menus.view.addSeparator();
  show_assets_ = addPart(menus.view, tr("A&ssets"), assets_part);
  show_insight_ = addPart(menus.view, tr("Insi&ght"), insight_part);
  show_toolbar_ = addPart(menus.view, tr("&Toolbar"), toolbar_part);
  show_toolbar_->setChecked(settings.shown(toolbar_part).value_or(true));
  addTravel(menus.view);
  menus.edit.addSeparator();
  find_asset_ = menus.edit.addAction(tr("&Find Asset"));
  find_asset_->setShortcut(QKeySequence::Find);
  connect(find_asset_, &QAction::triggered, this, &Workspace::findAsset);
  for (QAction* action : {show_toolbar_, show_assets_, show_insight_, find_asset_}) {
    action->setEnabled(false);
  }
  to_follow_.setSingleShot(true);
  connect(&to_follow_, &QTimer::timeout, this, &Workspace::followNow);
}

void Workspace::addTravel(QMenu& view) {
  const auto add = [this, &view](const QString& text, const QKeySequence& key, int step) {
    QAction* const action = view.addAction(text);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, [this, step] { travel(step); });
  };
  add(tr("&Next Part"), QKeySequence(Qt::Key_F6), 1);
  add(tr("&Previous Part"), QKeySequence(Qt::SHIFT | Qt::Key_F6), -1);
}

/// The keys go to the next of what stands side by side, from left to right, round and round.
void Workspace::travel(int step) {
  std::vector<std::pair<QWidget*, std::function<void()>>> parts;
  if (stands(assets_dock_)) parts.push_back({assets_dock_, [this] { assets_->startSearch(); }});
  parts.push_back({window_.centralWidget(), doors_.leave});
  if (stands(insight_dock_)) parts.push_back({insight_dock_, [this] { insight_->takeKeys(); }});
  const QWidget* const keys = QApplication::focusWidget();
  const auto here = std::find_if(parts.begin(), parts.end(), [keys](const auto& part) {
    return keys == part.first || part.first->isAncestorOf(keys);
  });
  const auto count = std::ssize(parts);
  const auto at = here == parts.end() ? 0 : here - parts.begin();
  parts[static_cast<std::size_t>((at + step + count) % count)].second();
}

QAction* Workspace::addPart(QMenu& view, const QString& text, const QString& part) {
  QAction* const action = view.addAction(text);
  action->setObjectName(part);
  action->setCheckable(true);
  action->setChecked(settings_.shown(part).value_or(false));
  connect(action, &QAction::triggered, this, [this, part](bool on) {
    settings_.setShown(part, on);
    arrange();
  });
  return action;
}

void Workspace::addTool(QAction& action, const QString& caption, const char* picture) {
  action.setIcon(toolIcon(picture));
  action.setIconText(caption);
  action.setIconVisibleInMenu(false);
  tools_ << &action;
}

void Workspace::addToolSeparator() { tools_ << nullptr; }

/// Made when it is first to be seen, as all that stands around the page: the window itself is to be
/// painted at once.
void Workspace::makeToolbar() {
  toolbar_ = emptyToolbar(window_);
  for (QAction* tool : tools_) {
    if (tool == nullptr) {
      toolbar_->addSeparator();
    } else {
      toolbar_->addAction(tool);
    }
  }
}

void Workspace::setOpen(bool company) {
  if (std::exchange(open_, company) == company) return;
  for (QAction* action : {show_toolbar_, show_assets_, show_insight_, find_asset_}) {
    action->setEnabled(company);
  }
  listed_ = false;
  if (company) decideFirst();
  arrange();
}

/// As many as the window has room for, where the user has chosen nothing yet.
void Workspace::decideFirst() {
  if (std::exchange(decided_, true)) return;
  const double pixels = window_.logicalDpiX() / 96.0;
  const double page =
      style::page_width * window_.logicalDpiX() / static_cast<double>(twips_per_inch);
  const FirstDocks first =
      firstDocks(window_.width(), static_cast<int>(page), static_cast<int>(assets_width * pixels),
                 static_cast<int>(insight_width * pixels));
  show_assets_->setChecked(settings_.shown(assets_part).value_or(first.assets));
  show_insight_->setChecked(settings_.shown(insight_part).value_or(first.insight));
}

void Workspace::arrange() {
  const bool toolbar = open_ && show_toolbar_->isChecked();
  if (toolbar && toolbar_ == nullptr) makeToolbar();
  if (toolbar_ != nullptr) toolbar_->setVisible(toolbar);
  const bool assets = open_ && show_assets_->isChecked();
  if (assets && assets_dock_ == nullptr) makeAssets();
  if (assets_dock_ != nullptr) assets_dock_->stand(assets);
  if (!assets && assets_ != nullptr) assets_->showAssets(nullptr);
  listed_ = listed_ && assets;
  const bool insight = open_ && show_insight_->isChecked();
  if (insight && insight_dock_ == nullptr) makeInsight();
  if (insight_dock_ != nullptr) insight_dock_->stand(insight && insight_->hasPages());
  follow();
}

void Workspace::makeAssets() {
  const int width = assets_width * window_.logicalDpiX() / 96;
  assets_dock_ = new SideDock({assets_part, tr("Assets"), Qt::LeftDockWidgetArea, width},
                              *show_assets_, settings_, doors_.leave, window_);
  assets_ = new AssetsPanel({settings_.assetColumns(), settings_.hidesDisposed()}, assets_dock_);
  assets_dock_->setWidget(assets_);
  connect(assets_, &AssetsPanel::chosen, this, &Workspace::chooseAsset);
  connect(assets_, &AssetsPanel::opened, this, doors_.edit);
  connect(assets_, &AssetsPanel::left, this, doors_.leave);
}

void Workspace::findAsset() {
  if (!show_assets_->isChecked()) show_assets_->trigger();
  assets_->startSearch();
}

/// The register's own choice comes after it, where that shows.
void Workspace::chooseAsset(std::int32_t number) {
  following_.chooseInList(number);
  doors_.choose(number);
  follow();
}

void Workspace::listAnew() {
  listed_ = false;
  follow();
}

/// Anew only after a change.
void Workspace::listAssets() {
  const auto revision = doors_.revision();
  if (listed_ && revision == listed_revision_) return;
  listed_ = true;
  listed_revision_ = revision;
  assets_->showAssets(doors_.read_all());
}

void Workspace::makeInsight() {
  const int width = insight_width * window_.logicalDpiX() / 96;
  insight_dock_ = new SideDock({insight_part, tr("Insight"), Qt::RightDockWidgetArea, width},
                               *show_insight_, settings_, doors_.leave, window_);
  insight_ = new InsightPanel(insight_dock_);
  doors_.fill(*insight_);
  insight_dock_->setWidget(insight_);
  show_insight_->setVisible(insight_->hasPages());
  connect(insight_, &InsightPanel::titled, insight_dock_, &QWidget::setWindowTitle);
}

void Workspace::setCalculator(Calculator* calculator) {
  following_.setCalculator(calculator == nullptr ? nullptr : &calculator->container());
  if (calculator != nullptr) {
    Surface& surface = calculator->surface();
    connect(&surface, &Surface::turned, this, [this] { following_.turned(); });
    connect(&surface, &Surface::cellPointed, this, [this](const Grid& grid, int row, int column) {
      following_.cellPointed(grid, row, column);
      follow();
    });
    // A screen fills itself when it is painted.
    connect(&surface, &Surface::painted, this, &Workspace::follow);
  }
  follow();
}

void Workspace::chooseInReport(std::int32_t number, std::optional<int> fiscal_year) {
  following_.chooseInReport(number, fiscal_year);
  follow();
}

/// Once for all that happens at a time.
void Workspace::follow() {
  if (stands(assets_dock_) || stands(insight_dock_)) to_follow_.start(std::chrono::seconds(0));
}

/// A change that could not be saved is held while the user is asked about it: nothing is read then.
void Workspace::followNow() {
  if (QApplication::activeModalWidget() != nullptr) return to_follow_.start(question_pause);
  if (!open_) return;
  if (stands(assets_dock_)) listAssets();
  const InsightSubject subject = following_.subject();
  if (stands(insight_dock_)) insight_->follow(subject);
  if (stands(assets_dock_)) assets_->mark(subject.asset.number);
}

void Workspace::remember() {
  for (SideDock* dock : {assets_dock_, insight_dock_}) {
    if (dock != nullptr) dock->rememberWidth();
  }
  if (assets_ == nullptr) return;
  const AssetsPanel::Looks looks = assets_->looks();
  settings_.setAssetColumns(looks.columns);
  settings_.setHidesDisposed(looks.hides_disposed);
}

}  // namespace depcalc::desktop
