// What stands around the calculator's page: the toolbar and, beside it, the assets and Insight.
#pragma once

#include <QList>
#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/widgets/surface.h"
#include "desktop/window/settings.h"
#include "desktop/workspace/assets_panel.h"
#include "desktop/workspace/insight_following.h"
#include "desktop/workspace/insight_panel.h"

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace depcalc::desktop {

class Calculator;
class SideDock;

/// Uses the calculator only as a user would, and can be closed away, part by part. What stands
/// beside the page is made when it is first to be seen, and does nothing while it is not.
class Workspace : public QObject {
  Q_OBJECT

 public:
  struct Menus {
    QMenu& edit;
    QMenu& view;
  };
  struct Doors {
    /// What is saved: it changes with every change. Nothing where it cannot be told.
    std::function<std::optional<std::uint64_t>()> revision;
    /// All of it; null where it could not be read.
    std::function<std::shared_ptr<const RegisterOfAssets>()> read_all;
    InsightFollowing::ReadAsset read;          ///< one asset of it
    std::function<void(std::int32_t)> choose;  ///< in the register, where that shows
    std::function<void(std::int32_t)> edit;    ///< as Asset > Edit does
    std::function<void(InsightPanel&)> fill;   ///< adds Insight's pages
    std::function<void()> leave;               ///< the keys go back to the page
  };

  /// `window` and `settings` live longer than this.
  Workspace(QMainWindow& window, const Menus& menus, Settings& settings, Doors doors);

  /// A button of the toolbar for an action of the menus, which keeps its own text there. `picture`
  /// is a name of `toolPicture`.
  void addTool(QAction& action, const QString& caption, const char* picture);
  void addToolSeparator();

  /// Only an open company has something beside its page.
  void setOpen(bool company);
  /// The calculator that runs now; null while none does.
  void setCalculator(Calculator* calculator);
  /// Something may be another now, in the calculator or in the company.
  void follow();
  /// What is listed of the company may be another, whatever its revision says.
  void listAnew();
  /// What Insight is about, from elsewhere than the calculator.
  void chooseInReport(std::int32_t number, std::optional<int> fiscal_year);
  /// Before the window closes.
  void remember();

  // Null as long as they were never to be seen.
  [[nodiscard]] InsightPanel* insight() const { return insight_; }
  [[nodiscard]] AssetsPanel* assets() const { return assets_; }

 private:
  QAction* addPart(QMenu& view, const QString& text, const QString& part);
  void decideFirst();
  void arrange();
  void makeToolbar();
  void makeAssets();
  void makeInsight();
  void findAsset();
  void chooseAsset(std::int32_t number);
  void addTravel(QMenu& view);
  void travel(int step);
  void listAssets();
  void followNow();

  QMainWindow& window_;
  Settings& settings_;
  Doors doors_;
  InsightFollowing following_;
  QList<QAction*> tools_;  ///< null for a gap
  QToolBar* toolbar_ = nullptr;
  QAction* show_toolbar_;
  QAction* show_assets_;
  QAction* show_insight_;
  QAction* find_asset_;
  SideDock* assets_dock_ = nullptr;
  AssetsPanel* assets_ = nullptr;
  SideDock* insight_dock_ = nullptr;
  InsightPanel* insight_ = nullptr;
  bool open_ = false;
  bool decided_ = false;  ///< what stands beside the page of who has never chosen
  QTimer to_follow_;
  bool listed_ = false;  ///< the assets of this company, as of
  std::optional<std::uint64_t> listed_revision_;
};

}  // namespace depcalc::desktop
